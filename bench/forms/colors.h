// The direction of a sign char, and the colour of a direction.
#ifndef TICKMUX_BENCH_FORMS_COLORS_H
#define TICKMUX_BENCH_FORMS_COLORS_H

namespace forms {

inline void ColorOf(int direction, char* dst) {
    dst[0] = direction > 0 ? '1' : direction < 0 ? '4' : '5';
    dst[1] = ' ';
}

// +1, -1 or 0; writes its colour to `dst` unless that is null.
inline int SignToColor(char* dst, char sign) {
    int direction = 0;
    if (sign >= '1' && sign <= '4') {
        direction = 1;
    } else if (sign >= '5' && sign <= '8') {
        direction = -1;
    }
    if (dst != nullptr) {
        ColorOf(direction, dst);
    }
    return direction;
}

// How a value lies to a base.
template <class Number>
int Compare(Number value, Number base) {
    return value > base ? 1 : value < base ? -1 : 0;
}

}  // namespace forms

#endif
