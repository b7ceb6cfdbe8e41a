// failing_allocation.h - makes one allocation of this program's tests fail, as on a machine without memory.
#pragma once

namespace sondera::test {

/// From now on the n-th operator new throws std::bad_alloc, once. 0: none.
void FailAllocation(long n);

/// Allocations since the last FailAllocation.
long AllocationsSince();

}  // namespace sondera::test
