#include "module/framework/code_requests.h"

#include <cassert>
#include <cstring>

#include "module/wire/shapes.h"

void CodeRequests::List::Add(char chClass, const char* code, int32_t length, uint32_t flags) {
    CodeRequest* request = m_Requests.Append();
    assert(request != nullptr);
    *request = {chClass, {}, length, flags};
    FillBlank(request->Code);
    std::memcpy(request->Code, code, static_cast<std::size_t>(length));
}

CodeRequests::List CodeRequests::Replace(List next) {
    ++m_nGeneration;
    return std::exchange(m_List, std::move(next));
}

bool CodeRequests::AskAll() {
    const unsigned generation = m_nGeneration;
    while (m_nGeneration == generation && m_List.m_nAsked < m_List.Size()) {
        const CodeRequest request = m_List[m_List.m_nAsked++];
        AddTrStcd(request.Code, request.CodeLength, request.Class, request.Flags);
    }
    return m_nGeneration == generation;
}

void CodeRequests::GiveUp(const List& former) {
    for (std::size_t place = 0; place < former.m_nAsked; ++place) {
        const CodeRequest& request = former[place];
        DelTrStcd(request.Code, request.CodeLength, request.Class, request.Flags);
    }
}

bool CodeRequests::MoveTo(List next) {
    const List former = Replace(std::move(next));
    const bool inForce = AskAll();
    GiveUp(former);
    return inForce;
}
