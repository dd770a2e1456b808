#include "tests/support/fields.h"

#include <sstream>

namespace {

std::string Ruler(const std::string& text, std::size_t offset, std::size_t width) {
    return offset < text.size() ? "[" + text.substr(offset, width) + "]" : "(not there)";
}

void TellDifferences(std::ostream& out, const std::string& actual, const std::string& expected,
                     const std::vector<tools::Field>& fields, std::size_t origin) {
    for (const tools::Field& field : fields) {
        const std::string is = Ruler(actual, origin + field.Offset, field.Width);
        const std::string should = Ruler(expected, origin + field.Offset, field.Width);
        if (is != should) {
            out << "\n  at " << origin + field.Offset << " " << field.Name << ": " << is << ", expected "
                << should;
        }
    }
}

}  // namespace

testing::AssertionResult SameFields(const std::string& actual, const std::string& expected,
                                    const std::vector<tools::Field>& front, std::size_t frontSize,
                                    const std::vector<tools::Field>& row, std::size_t rowSize) {
    if (actual == expected) {
        return testing::AssertionSuccess();
    }
    std::ostringstream differences;
    differences << "buffers differ, " << actual.size() << " bytes against expected " << expected.size()
                << "\n  tag: " << Ruler(actual, 0, 2) << ", expected " << Ruler(expected, 0, 2);
    TellDifferences(differences, actual, expected, front, 0);
    const std::size_t end = std::max(actual.size(), expected.size());
    for (std::size_t at = frontSize; rowSize > 0 && at < end; at += rowSize) {
        TellDifferences(differences, actual, expected, row, at);
    }
    differences << "\n  whole: " << Ruler(actual, 0, end) << "\n  expected: " << Ruler(expected, 0, end);
    return testing::AssertionFailure() << differences.str();
}
