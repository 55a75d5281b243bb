// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_WINDOWS_BESSELFUNCTIONS_H
#define LAMCRAFT_WINDOWS_BESSELFUNCTIONS_H

// Ceres' dual numbers name these three; mingw's library has them, and its <cmath> leaves them out
// of standard C++.
extern "C" {
double j0(double x);
double j1(double x);
double jn(int order, double x);
}

#endif
