// allocation_count.cpp - the counting operator new of this test program: each program has one of its own.
#include "numeric/allocation_count.cpp"
