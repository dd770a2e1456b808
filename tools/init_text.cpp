#include "tools/init_text.h"

#include "tools/errors.h"
#include "tools/text.h"

namespace tools {

namespace {

std::string_view LastWord(std::string_view name) {
    return name.substr(name.rfind('.') + 1);
}

std::string NamesOf(const std::vector<const Field*>& fields) {
    std::vector<std::string> names;
    names.reserve(fields.size());
    for (const Field* field : fields) {
        names.push_back(field->Name);
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

void InitText::Cut(std::size_t size) {
    m_Bytes.resize(size);
    std::erase_if(m_Fields, [size](const Field& field) { return field.Offset >= size; });
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
