# LAMCRAFT_SANITIZE: a list for -fsanitize (address,undefined or thread), empty for none.
if(LAMCRAFT_SANITIZE)
  add_compile_options(-fsanitize=${LAMCRAFT_SANITIZE} -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${LAMCRAFT_SANITIZE})
endif()
