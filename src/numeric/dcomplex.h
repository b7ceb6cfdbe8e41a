// dcomplex.h - the complex number of both arithmetic families: two doubles, real part first.
#pragma once

namespace sondera {

struct dcomplex {
  double re = 0.0;
  double im = 0.0;
};

}  // namespace sondera
