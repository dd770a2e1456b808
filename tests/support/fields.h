// Text of layouts: what tests compare and what they print where it differs.
#ifndef TICKMUX_TESTS_SUPPORT_FIELDS_H
#define TICKMUX_TESTS_SUPPORT_FIELDS_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "terminal/fields.h"
#include "tests/support/text.h"

// Compares a buffer whole; the difference is told field by field.
testing::AssertionResult SameFields(const std::string& actual, const std::string& expected,
                                    const std::vector<tools::Field>& front, std::size_t frontSize,
                                    const std::vector<tools::Field>& row, std::size_t rowSize);

template <class Front>
testing::AssertionResult Shows(const std::string& actual, const std::string& expected) {
    return SameFields(actual, expected, tools::FieldsOf<Front>(), sizeof(Front), {}, 0);
}

template <class Front, class Row>
testing::AssertionResult ShowsRows(const std::string& actual, const std::string& expected) {
    return SameFields(actual, expected, tools::FieldsOf<Front>(), sizeof(Front), tools::FieldsOf<Row>(),
                      sizeof(Row));
}

#endif
