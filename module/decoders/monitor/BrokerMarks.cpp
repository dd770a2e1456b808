#include "module/decoders/monitor/BrokerMarks.h"

#include <cstring>
#include <string_view>

#include "host/services/services.h"
#include "module/wire/codecs.h"
#include "module/wire/shapes.h"

bool BrokerMarks::Load() {
    constexpr int kBrokers = 3;
    CString first;
    CString second;
    const CodeTable* brokers = CQelData21::GetMasterData(kBrokers, first, second);
    if (brokers == nullptr || !m_Marks.Reset(brokers->size())) {
        return false;
    }
    for (const auto& [text, entry] : *brokers) {
        const std::string_view code = text;
        BrokerCode key;
        // Codes that no packet's four characters, blanks cut off behind, can be.
        if (code.size() > sizeof(key.Text) || code != WithoutBlanksBehind(code)) {
            continue;
        }
        FillBlank(key);
        std::memcpy(key.Text, code.data(), code.size());
        m_Marks.Put(key, static_cast<const char*>(entry->szMark)[0]);
    }
    return true;
}
