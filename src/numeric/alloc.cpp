// alloc.cpp - the two allocators for the kernels that manage memory by hand.
#include "numeric/alloc.h"

#include <cstdlib>

#include "numeric/nrerror.h"

namespace sondera {

void dmMatrixSetup(dmMatrix* m, int rows, int cols) {
  m->rows = rows;
  m->cols = cols;
  m->data = nullptr;
  if (rows < 0 || cols < 0) return;
  const std::size_t count = static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols);
  m->data = static_cast<double*>(std::calloc(count, sizeof(double)));
}

void dmMatrixFree(dmMatrix m) {
  std::free(m.data);
}

void* MallocOrDie(std::size_t bytes) {
  void* block = std::malloc(bytes);
  if (block == nullptr) ShowKernelPopup("MallocOrDie: out of memory\n");
  return block;
}

}  // namespace sondera
