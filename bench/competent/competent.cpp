#include "bench/competent/competent.h"

template class forms::Module<competent::Style>;
