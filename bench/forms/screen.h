// A screen that takes packets: a table of member functions, one for each packet type. Screens are opened, fed
// and closed; they ask nobody for packets.
#ifndef TICKMUX_BENCH_FORMS_SCREEN_H
#define TICKMUX_BENCH_FORMS_SCREEN_H

#include <string>

#include "module/wire/packets.h"

namespace forms {

class Screen {
public:
    Screen() = default;
    virtual ~Screen() = default;
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    virtual int Init(const char* buffer) = 0;
    virtual void EndUnpack() = 0;  // of a batch with changes

    void PutPacket(const char* packet, int length) {
        const Slot& slot = m_Slots[*packet - kFirstPacketType];
        if (slot.Length == length - 1 && slot.OnPacket != nullptr) {
            m_bChanged |= (this->*slot.OnPacket)(packet + 1);
        }
    }

    std::string GetPacketTypes() const {
        std::string types;
        for (int index = 0; index < kPacketTypes; ++index) {
            if (m_Slots[index].OnPacket != nullptr) {
                types += static_cast<char>(kFirstPacketType + index);
            }
        }
        return types;
    }

    int m_bActive = 0;
    int m_bChanged = 0;

protected:
    using Handler = int (Screen::*)(const char* payload);

    template <class Derived>
    void SetSlot(char type, int length, int (Derived::*handler)(const char* payload)) {
        m_Slots[type - kFirstPacketType] = {length, static_cast<Handler>(handler)};
    }

private:
    struct Slot {
        int Length;
        Handler OnPacket;
    };

    Slot m_Slots[kPacketTypes] = {};
};

}  // namespace forms

#endif
