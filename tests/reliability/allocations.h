// The heap of this program and its libraries: how much is in use, and allocations that fail. Every form of
// operator new is replaced here, so that plain, nothrow and aligned ones count alike.
#ifndef TICKMUX_TESTS_RELIABILITY_ALLOCATIONS_H
#define TICKMUX_TESTS_RELIABILITY_ALLOCATIONS_H

#include <cstddef>
#include <cstdint>

namespace heap {

struct Use {
    int64_t Blocks;
    int64_t Bytes;
};
Use InUse();

enum class Failure { Once, FromThenOn };

// From its construction to its end the n-th allocation of this thread fails, counted from 1; without an n
// they are only counted.
class Failing {
public:
    explicit Failing(int64_t n, Failure failure = Failure::Once);
    ~Failing();
    Failing(const Failing&) = delete;
    Failing& operator=(const Failing&) = delete;

    static bool Hit();
    static int64_t Asked();
};

// What the test itself allocates meanwhile neither counts nor fails.
class Spared {
public:
    Spared();
    ~Spared();
    Spared(const Spared&) = delete;
    Spared& operator=(const Spared&) = delete;

private:
    bool m_bArmed;
};

}  // namespace heap

#endif
