// Tests that may be long: ./test long sets the variable.
#ifndef TICKMUX_TESTS_RELIABILITY_LONG_FORM_H
#define TICKMUX_TESTS_RELIABILITY_LONG_FORM_H

#include <cstdlib>

inline int ShortOrLong(int shortForm, int longForm) {
    return std::getenv("TICKMUX_LONG_TESTS") == nullptr ? shortForm : longForm;
}

#endif
