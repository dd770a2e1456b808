// The requests of a list of codes, sent one by one.
//
// From within a request the communication manager may call back and end the list, or bring another: then no
// more of it is asked for, and what is given up is exactly what was asked for.
#ifndef TICKMUX_MODULE_FRAMEWORK_CODE_REQUESTS_H
#define TICKMUX_MODULE_FRAMEWORK_CODE_REQUESTS_H

#include <cstddef>
#include <cstdint>
#include <utility>

#include "module/containers/plain_array.h"
#include "module/framework/subscription.h"

// A code of a class, and the packet types wanted of it.
struct CodeRequest {
    char Class;
    char Code[11];  // spaces behind
    int32_t CodeLength;
    uint32_t Flags;
};

class CodeRequests {
public:
    // The codes stand in the order in which they are asked for.
    class List {
    public:
        // Room for so many requests; false if memory fails.
        bool Reserve(std::size_t requests) { return m_Requests.Reserve(requests); }
        // There must be room.
        void Add(char chClass, const char* code, int32_t length, uint32_t flags);

        std::size_t Size() const { return m_Requests.Size(); }
        const CodeRequest& operator[](std::size_t place) const { return m_Requests[place]; }

    private:
        friend class CodeRequests;

        PlainArray<CodeRequest> m_Requests;
        std::size_t m_nAsked = 0;  // the first so many requests have gone out
    };

    // The list that is in force.
    const List& Current() const { return m_List; }

    // Puts a list in force, of which nothing has been asked for yet; gives the former one.
    List Replace(List next);
    // Asks for what is in force. False: it has been ended or replaced meanwhile.
    bool AskAll();
    static void GiveUp(const List& former);

    // The next list is asked for before the former one is given up. Gives what AskAll gives.
    bool MoveTo(List next);
    void GiveUpAll() { GiveUp(Replace({})); }

private:
    List m_List;
    unsigned m_nGeneration = 0;  // of the list
};

#endif
