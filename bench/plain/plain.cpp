#include "bench/plain/plain.h"

template class forms::Module<plain::Style>;
