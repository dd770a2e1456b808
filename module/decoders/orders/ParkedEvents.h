// Order events that wait for the acceptance of their order, oldest first. There is no limit to them.
#ifndef TICKMUX_MODULE_DECODERS_ORDERS_PARKEDEVENTS_H
#define TICKMUX_MODULE_DECODERS_ORDERS_PARKEDEVENTS_H

#include "module/containers/node_pool.h"
#include "module/containers/number_index.h"
#include "module/decoders/orders/OrderEvent.h"

class ParkedEvents {
public:
    // An event that memory fails for is lost.
    void Park(const OrderEvent& event) {
        if (Parked* parked = m_Pool.Take()) {
            *parked = {event.OrderNo, nullptr, nullptr, event};
            m_Index.PutLast(parked);
        }
    }

    // The oldest of an order leaves; false: there is none.
    bool Take(int32_t orderNo, OrderEvent& event) {
        Parked* parked = m_Index.Find(orderNo);
        if (parked == nullptr) {
            return false;
        }
        event = parked->Event;
        m_Index.Remove(parked);
        m_Pool.Give(parked);
        return true;
    }

    void Clear() {
        m_Index.Clear();
        m_Pool.Clear();
    }

private:
    struct Parked {
        int32_t Number;
        Parked* Previous;
        Parked* Next;
        OrderEvent Event;
    };

    NodePool<Parked> m_Pool;
    NumberIndex<Parked> m_Index;
};

#endif
