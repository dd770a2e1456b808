// A screen's way to its window, by the terminal's own queue, like the module's.
#ifndef TICKMUX_BENCH_FORMS_VIEW_H
#define TICKMUX_BENCH_FORMS_VIEW_H

#include <cstring>
#include <vector>

#include "bench/forms/init_text.h"
#include "host/platform/platform.h"
#include "host/services/services.h"
#include "module/framework/tickmux.h"
#include "module/wire/shapes.h"

namespace forms {

template <class Style>
class View {
public:
    explicit View(HWND window) : m_hWnd(window) {}
    ~View() {
        TakeAllItems(m_Queue, [](void* taken) {
            const auto* item = static_cast<ViewItem*>(taken);
            delete[] item->pData;
            delete item;
        });
    }
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    void TakeTag(InitText<Style>& in) { in.ReadBytes(&m_Tag, sizeof(m_Tag)); }

    // A picture that stays: request tag, then so many spaces, of which the place is given.
    void AllocPicture(int bodyLen) {
        m_Picture.assign(sizeof(m_Tag) + static_cast<size_t>(bodyLen), ' ');
        memcpy(m_Picture.data(), &m_Tag, sizeof(m_Tag));
    }
    // As the tagged shape that it is.
    template <class Shape>
    Shape& Picture() {
        return *reinterpret_cast<Shape*>(m_Picture.data());
    }
    char* PictureBody() { return m_Picture.data() + sizeof(m_Tag); }
    void PostPicture() {
        auto* buffer = new char[m_Picture.size()];
        memcpy(buffer, m_Picture.data(), m_Picture.size());
        Post(buffer, buffer + m_Picture.size());
    }

    // A buffer of spaces with the tag and, at `headAt`, a repeat head with room for the rows behind it.
    char* NewRowsBuffer(int headAt, int rows, int rowSize) const {
        const int size = headAt + static_cast<int>(sizeof(RepeatHead)) + rows * rowSize;
        auto* buffer = new char[static_cast<size_t>(size)];
        memset(buffer, ' ', static_cast<size_t>(size));
        memcpy(buffer, &m_Tag, sizeof(m_Tag));
        auto* head = reinterpret_cast<RepeatHead*>(buffer + headAt);
        Style::LongToAscii(rows, head->Count, sizeof(head->Count));
        Style::LongToAscii(rowSize, head->Size, sizeof(head->Size));
        return buffer;
    }

    // The buffer, which begins with its tag, becomes the queue's.
    void Post(char* buffer, const char* end) {
        if (IsWindow(m_hWnd) == FALSE) {
            delete[] buffer;
            return;
        }
        auto* item = new ViewItem;
        item->pData = buffer;
        item->nLen = static_cast<int>(end - buffer) - static_cast<int>(sizeof(m_Tag));
        m_Queue.AddTail(item);
        SendNotifyMessageA(m_hWnd, WM_TICKMUX_VIEW, reinterpret_cast<WPARAM>(&m_Queue), 0);
    }

private:
    HWND m_hWnd;
    RequestTag m_Tag{};
    std::vector<char> m_Picture;
    CRtmPtrList m_Queue;
};

}  // namespace forms

#endif
