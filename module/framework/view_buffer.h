// A buffer on its way to the view: the request tag, then the body. It has one owner at a time, and is given
// away in one place, CRTMPacketDecoder::PostToView.
#ifndef TICKMUX_MODULE_FRAMEWORK_VIEW_BUFFER_H
#define TICKMUX_MODULE_FRAMEWORK_VIEW_BUFFER_H

#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "module/wire/shapes.h"

class ViewBuffer {
public:
    ViewBuffer() = default;

    // Each is empty if memory fails. `bytes` counts the tag.

    // Of bytes that its maker writes, all of them.
    static ViewBuffer Unwritten(std::size_t bytes) {
        ViewBuffer buffer;
        buffer.m_pBytes.reset(new (std::nothrow) char[bytes]);
        buffer.m_nBytes = buffer ? bytes : 0;
        return buffer;
    }

    // Of spaces.
    static ViewBuffer Blank(std::size_t bytes) {
        ViewBuffer buffer = Unwritten(bytes);
        if (buffer) {
            std::memset(buffer.m_pBytes.get(), ' ', bytes);
        }
        return buffer;
    }

    // A whole packet, which has no request tag.
    static ViewBuffer OfPacket(const char* packet, std::size_t bytes) {
        ViewBuffer buffer = Unwritten(bytes);
        if (buffer) {
            std::memcpy(buffer.m_pBytes.get(), packet, bytes);
            buffer.m_nTagBytes = 0;
        }
        return buffer;
    }

    ViewBuffer Copy() const {
        ViewBuffer copy = Unwritten(m_nBytes);
        if (copy) {
            std::memcpy(copy.m_pBytes.get(), m_pBytes.get(), m_nBytes);
        }
        return copy;
    }

    explicit operator bool() const { return m_pBytes != nullptr; }
    char* Bytes() { return m_pBytes.get(); }

    // Reads the head of the buffer as a layout.
    template <class Layout>
    Layout& As() {
        static_assert(alignof(Layout) == 1);
        return *reinterpret_cast<Layout*>(m_pBytes.get());
    }

    int BodyLength() const { return static_cast<int>(m_nBytes - m_nTagBytes); }

    // Ownership goes to the caller.
    char* GiveAway() {
        m_nBytes = 0;
        return m_pBytes.release();
    }

private:
    std::unique_ptr<char[]> m_pBytes;
    std::size_t m_nBytes = 0;
    std::size_t m_nTagBytes = sizeof(RequestTag);
};

#endif
