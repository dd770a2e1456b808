#include "terminal/init_text.h"

#include <algorithm>

#include "terminal/errors.h"
#include "terminal/text.h"

namespace tools {

namespace {

std::string_view LastWord(std::string_view name) {
    return name.substr(name.rfind('.') + 1);
}

// A name up to its number, and the number: "Field12.Tag" is "Field", "12".
std::pair<std::string_view, std::string_view> Numbered(std::string_view name) {
    const std::size_t digits = std::min(name.find_first_of("0123456789"), name.size());
    const std::string_view rest = name.substr(digits);
    return {name.substr(0, digits), rest.substr(0, rest.find_first_not_of("0123456789"))};
}

// Many numbered fields in a row are told by the first and the last.
std::string NamesOf(const std::vector<const Field*>& fields) {
    constexpr std::ptrdiff_t kMany = 10;
    std::vector<std::string> names;
    for (auto first = fields.begin(); first != fields.end();) {
        const auto [stem, from] = Numbered((*first)->Name);
        const auto end = std::find_if(first, fields.end(), [stem = stem](const Field* field) {
            return Numbered(field->Name).first != stem;
        });
        const std::string& last = (*(end - 1))->Name;
        const std::string_view to = Numbered(last).second;
        if (end - first < kMany || to.empty() || !last.ends_with(to)) {
            names.push_back((*first++)->Name);
            continue;
        }
        names.push_back(std::string(stem).append(from).append(" to ").append(stem).append(to));
        first = end;
    }
    return Joined(names);
}

}  // namespace

void InitText::Set(std::string_view name, std::string_view value) {
    const Field& field = Find(name);
    if (value.size() > field.Width) {
        throw BadInput("value " + Quoted(value) + " has " + std::to_string(value.size()) +
                       " characters, but " + field.Name + " has room for " + std::to_string(field.Width) +
                       "; shorten it");
    }
    if (value.find('\0') != std::string_view::npos) {
        throw BadInput("value " + Quoted(value) + " of " + field.Name +
                       " has a zero byte, which ends the text");
    }
    m_Bytes.replace(field.Offset, field.Width,
                    std::string(value) + std::string(field.Width - value.size(), ' '));
}

void InitText::AppendBlank(const std::vector<Field>& fields, std::size_t size) {
    for (Field field : fields) {
        field.Offset += m_Bytes.size();
        m_Fields.push_back(std::move(field));
    }
    m_Bytes.append(size, ' ');
}

void InitText::Remove(std::size_t from, std::size_t size) {
    m_Bytes.erase(from, size);
    std::erase_if(m_Fields, [from, size](const Field& field) {
        return field.Offset >= from && field.Offset < from + size;
    });
    for (Field& field : m_Fields) {
        field.Offset -= field.Offset >= from ? size : 0;
    }
}

const Field& InitText::Find(std::string_view name) const {
    std::vector<const Field*> all;
    std::vector<const Field*> found;
    for (const Field& field : m_Fields) {
        if (field.Name == name) {
            return field;
        }
        all.push_back(&field);
        if (LastWord(field.Name) == name) {
            found.push_back(&field);
        }
    }
    if (found.empty()) {
        throw BadInput("unknown field " + Quoted(name) + "; known: " + NamesOf(all));
    }
    if (found.size() > 1) {
        throw BadInput("field " + Quoted(name) + " may be each of " + NamesOf(found) + "; name one in full");
    }
    return *found.front();
}

}  // namespace tools
