// The module's containers against the standard library's, over random lives.
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <map>
#include <random>
#include <set>

#include "module/decoders/orders/OrderRows.h"
#include "module/decoders/orders/ParkedEvents.h"
#include "module/framework/row_board.h"
#include "tests/support/fields.h"

namespace {

std::mt19937 g_Random{20261120};

int Any(int below) {
    return std::uniform_int_distribution(0, below - 1)(g_Random);
}

// Node pool and number index.
TEST(Containers, ParkedEventsOfANumberLeaveOldestFirst) {
    ParkedEvents events;
    std::map<int32_t, std::deque<int>> model;
    OrderEvent event{};
    for (int id = 0; id < 20000; ++id) {
        event.OrderNo = Any(100) * 16 - 800;
        std::deque<int>& ids = model[event.OrderNo];
        if (Any(2) == 0) {
            event.Quantity = id;
            events.Park(event);
            ids.push_back(id);
        } else if (ids.empty()) {
            ASSERT_FALSE(events.Take(event.OrderNo, event));
        } else {
            ASSERT_TRUE(events.Take(event.OrderNo, event));
            ASSERT_EQ(event.Quantity, ids.front());
            ids.pop_front();
        }
    }
}

TEST(Containers, OrderRowsTellPlacesMarksAndTouchesOfAList) {
    using Entries = std::vector<OrderEntry*>;
    OrderRows rows;
    Entries model;  // top first
    const auto those = [&model](auto&& belongs) {
        Entries found;
        std::copy_if(model.begin(), model.end(), std::back_inserter(found), belongs);
        return found;
    };
    for (int step = 0; step < 20000; ++step) {
        const std::size_t most = step / 1000 % 2 == 0 ? 100 : 10;
        while (model.size() < 5 || (model.size() < most && Any(2) == 0)) {
            OrderRow row;
            FillBlank(row);
            row.OrderNo[6] = static_cast<char>('0' + Any(10));
            row.ShownMark = Any(2) == 0 ? 's' : ' ';
            model.insert(model.begin(), rows.InsertTop(row, RowMark::None));
        }
        const auto shown = those(&OrderRows::IsShown);
        std::map<int32_t, OrderEntry*> first;
        for (std::size_t place = 0, above = 0; place < model.size(); ++place) {
            OrderEntry* const entry = model[place];
            ASSERT_EQ(rows.IndexOf(entry), static_cast<int>(place));
            ASSERT_EQ(rows.FindRow(entry->Number), first.emplace(entry->Number, entry).first->second);
            if (above < shown.size() && shown[above] == entry) {
                ASSERT_EQ(rows.CountShownAbove(entry), static_cast<int>(above++));
            }
        }
        Entries sorted;
        rows.VisitMarked([&sorted](OrderEntry& entry) { return sorted.push_back(&entry), entry.Mark; });
        ASSERT_EQ(sorted, those([](const OrderEntry* entry) { return entry->Mark != RowMark::None; }));
        const auto at = model.begin() + Any(static_cast<int>(model.size()));
        const auto mark = static_cast<RowMark>(Any(3));
        const int action = Any(8);
        if (action == 0) {
            rows.Remove(*at);
            model.erase(at);
        } else if (action == 1) {
            rows.SetShown(*at, mark == RowMark::New);
        } else if (action == 2) {
            rows.Touch(*at);
        } else if (action == 3) {
            const Entries touched = those([](const OrderEntry* entry) { return entry->Touched; });
            ASSERT_EQ(rows.TakeTouched(), touched.empty() ? nullptr : touched.back());
        } else if (action == 4 && mark != RowMark::None) {
            Entries marked = those([mark](const OrderEntry* entry) { return entry->Mark == mark; });
            ASSERT_EQ(rows.CountMarked(mark), static_cast<int>(marked.size()));
            Entries taken;
            rows.TakeMarked(mark, [&taken](OrderEntry& entry) { taken.push_back(&entry); });
            std::reverse(marked.begin(), marked.end());
            ASSERT_EQ(taken, marked);
        } else {
            rows.SetMark(*at, mark);
            ASSERT_EQ((*at)->Mark, mark);
        }
    }
}

struct BoardKind {
    using Key = StockKey;
    struct Row {
        StockKey Key;
        char Figure[6];
    };
    static const StockKey& KeyOf(const Row& row) { return row.Key; }
};

// And its key index. Many keys differ at one end alone, and some are listed twice.
TEST(Containers, RowBoardFindsTheFirstOfAKeyAndSendsWhatChangedInOrder) {
    const auto anyKey = [] { return Left(std::to_string(Any(30)), 10) + std::to_string(Any(9)); };
    using Board = RowBoard<BoardKind>;
    Board board;
    for (int inquiry = 0; inquiry < 300; ++inquiry) {
        std::string text;
        std::map<std::string, int> places;
        const int count = Any(60);
        for (int place = 0; place < count; ++place) {
            const std::string key = anyKey();
            places.emplace(key, place);
            text += key + std::to_string(100000 + place);
        }
        const auto* first = reinterpret_cast<const BoardKind::Row*>(text.data());
        ASSERT_TRUE(board.Take({first, static_cast<std::size_t>(count)}));
        for (int batch = 0; batch < 20; ++batch) {
            std::set<int> changed;
            for (int packets = Any(20); packets > 0; --packets) {
                const std::string key = anyKey();
                const int place = board.Find(reinterpret_cast<const StockKey&>(key[0]));
                ASSERT_EQ(place, places.contains(key) ? places[key] : Board::kNowhere);
                if (place != Board::kNowhere) {
                    changed.insert(place);
                    board.Touch(place);
                }
            }
            std::string expected;
            for (const int place : changed) {
                expected += text.substr(static_cast<std::size_t>(place) * sizeof(BoardKind::Row),
                                        sizeof(BoardKind::Row));
            }
            ASSERT_EQ(board.Empty(), changed.empty());
            ViewBuffer sent = board.Pack(PlainRows{});
            const auto length = sizeof(RequestTag) + static_cast<std::size_t>(sent.BodyLength());
            ASSERT_EQ(std::string(sent.Bytes(), length).substr(sizeof(PlainRows)), expected);
            board.Clear();
        }
    }
}

}  // namespace
