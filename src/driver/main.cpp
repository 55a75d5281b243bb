#include "driver/Run.h"

int main(int argc, char** argv) {
  return static_cast<int>(lamcraft::driver::run(argc, argv));
}
