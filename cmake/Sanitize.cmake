# SPDX-License-Identifier: BSD-3-Clause
# LAMCRAFT_SANITIZE: a list for -fsanitize (address,undefined or thread), empty for none.
if(LAMCRAFT_SANITIZE)
  add_compile_options(-fsanitize=${LAMCRAFT_SANITIZE} -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${LAMCRAFT_SANITIZE})
endif()

# Fuzzers try more inputs in a second without what they do not need.
if(LAMCRAFT_FUZZ)
  set(ignored ${PROJECT_SOURCE_DIR}/tests/fuzz/sanitizers.txt)
  add_compile_options(-fsanitize-ignorelist=${ignored} -fsanitize-coverage-ignorelist=${ignored}
                      -fno-sanitize-coverage=trace-cmp)
endif()
