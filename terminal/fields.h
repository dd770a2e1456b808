// The fields of a layout, as its own description tells them: what prints, fills or documents a buffer walks
// this list.
#ifndef TICKMUX_TERMINAL_FIELDS_H
#define TICKMUX_TERMINAL_FIELDS_H

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "module/wire/little.h"
#include "module/wire/shapes.h"

namespace tools {

// Fields of fields are named with the way to them: "Field1.Value", and "Rows3.Broker1" of the third of rows.
struct Field {
    std::string Name;
    std::size_t Offset;
    std::size_t Width;
    bool IsNumber = false;  // a Little<> integer, otherwise text

    std::string_view Of(std::string_view buffer) const { return buffer.substr(Offset, Width); }
    bool IsReserved() const { return Name.find("Reserved") != std::string::npos; }
};

template <class Member>
inline constexpr bool kIsNumber = false;
template <class Integer>
inline constexpr bool kIsNumber<Little<Integer>> = true;

class FieldCollector {
public:
    FieldCollector(const void* origin, std::size_t offset, std::string prefix, std::vector<Field>& fields)
        : m_pOrigin(static_cast<const char*>(origin)),
          m_nOffset(offset),
          m_Prefix(std::move(prefix)),
          m_Fields(fields) {}

    template <class Member>
    void operator()(const char* name, const Member& member) const {
        if constexpr (std::is_class_v<std::remove_extent_t<Member>> && std::is_array_v<Member>) {
            for (std::size_t i = 0; i < std::extent_v<Member>; ++i) {
                Add(name + std::to_string(i + 1), member[i]);
            }
        } else {
            Add(name, member);
        }
    }

private:
    template <class Member>
    void Add(const std::string& name, const Member& member) const {
        const char* place = reinterpret_cast<const char*>(&member);
        const std::size_t offset = m_nOffset + static_cast<std::size_t>(place - m_pOrigin);
        if constexpr (std::is_class_v<Member> && !kIsNumber<Member>) {
            Describe(member, FieldCollector(place, offset, m_Prefix + name + ".", m_Fields));
        } else {
            m_Fields.push_back({m_Prefix + name, offset, sizeof(Member), kIsNumber<Member>});
        }
    }

    const char* m_pOrigin;
    std::size_t m_nOffset;
    std::string m_Prefix;
    std::vector<Field>& m_Fields;
};

// A layout at a place of a buffer.
template <class Layout>
std::vector<Field> FieldsOf(std::size_t offset = 0, const std::string& prefix = "") {
    const Layout layout{};
    std::vector<Field> fields;
    Describe(layout, FieldCollector(&layout, offset, prefix, fields));
    return fields;
}

// What a part of a buffer holds, with the bytes in between that have no name.
struct LayoutTable {
    std::string Title;
    std::size_t Offset;
    std::size_t Size;
    std::vector<Field> Fields;
};

inline const Field kTagField = {"Tag", 0, sizeof(RequestTag)};

// A layout that begins with the request tag.
template <class Layout>
LayoutTable TaggedTable(std::string title) {
    std::vector<Field> fields = FieldsOf<Layout>();
    fields.insert(fields.begin(), kTagField);
    return {std::move(title), 0, sizeof(Layout), std::move(fields)};
}

}  // namespace tools

#endif
