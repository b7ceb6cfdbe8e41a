// allocation_count.h - how often this test program has asked for memory through operator new.
#pragma once

namespace sondera::test {

long AllocationCount();

}  // namespace sondera::test
