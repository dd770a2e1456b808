#include "module/decoders/monitor/WatchSet.h"

#include <algorithm>
#include <cstring>

#include "module/wire/codecs.h"

namespace {

constexpr char kEntryBoards[] = {'1', '2', '3'};

// The code behind the board char of an interest item's key.
std::string_view CodeOf(const MarlGroupItem& item) {
    return WithoutBlanksBehind({item.szKey + sizeof(StockKey::Board), sizeof(StockKey::Code)});
}

// Calls visit(item) for the items of the groups, in the order in which the numbers name them.
template <class Visitor>
void ForEachItem(const CInterestTable& table, std::string_view numbers, Visitor&& visit) {
    constexpr std::size_t kNumberWidth = 3;
    constexpr std::size_t kStep = kNumberWidth + 1;
    for (std::size_t at = 0; at < numbers.size(); at += kStep) {
        const std::string_view number = numbers.substr(at, kNumberWidth);
        const CMarlGroup* group =
            table.FindGroupNo(AsciiToLong(number.data(), static_cast<int>(number.size())));
        if (group != nullptr) {
            std::for_each(group->Items.begin(), group->Items.end(), visit);
        }
    }
}

}  // namespace

bool WatchSet::MakeRoom(std::size_t codes) {
    return m_Codes.Reset(codes) && m_Requests.Reserve(codes * sizeof(kEntryBoards));
}

bool WatchSet::Watch(std::string_view code) {
    code = WithoutBlanksBehind(code);
    StockCode key;
    if (code.size() > sizeof(key)) {
        return false;
    }
    FillBlank(key);
    std::memcpy(&key, code.data(), code.size());
    return m_Codes.Put(key, 0);
}

void WatchSet::AddRequests(std::string_view code) {
    StockKey key;
    FillBlank(key);
    std::memcpy(key.Code, code.data(), std::min(code.size(), sizeof(key.Code)));
    for (const char board : kEntryBoards) {
        key.Board = board;
        m_Requests.Add(kStockClass, reinterpret_cast<const char*>(&key), sizeof(key), kWantTrades);
    }
}

bool WatchSet::WatchGroups(const CInterestTable& table, std::string_view numbers) {
    std::size_t items = 0;
    ForEachItem(table, numbers, [&items](const MarlGroupItem& /*item*/) { ++items; });
    if (!MakeRoom(items)) {
        return false;
    }
    ForEachItem(table, numbers, [this](const MarlGroupItem& item) {
        if (Watch(CodeOf(item))) {
            AddRequests(CodeOf(item));
        }
    });
    return true;
}

bool WatchSet::WatchMarket() {
    constexpr int kStocks = 0;
    CString first;
    CString second;
    const CodeTable* stocks = CQelData21::GetMasterData(kStocks, first, second);
    if (stocks == nullptr || !m_Codes.Reset(stocks->size())) {
        return false;
    }
    for (const auto& [code, entry] : *stocks) {
        Watch(code);
    }
    m_bWholeMarket = true;
    return true;
}

bool WatchSet::WatchIndustry() {
    CStringArray codes;
    CStringArray names;
    if (CQelData21::GetIndusData(0, "0020", codes, names) == 0) {
        return true;  // the set stays empty
    }
    if (!MakeRoom(codes.size())) {
        return false;
    }
    for (const CString& code : codes) {
        Watch(static_cast<const char*>(code));
        AddRequests(static_cast<const char*>(code));
    }
    return true;
}
