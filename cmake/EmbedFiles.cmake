# SPDX-License-Identifier: BSD-3-Clause
# Writes TARGET, a source that holds the bytes of FILES: lamkit::embeddedFile("charts.js").
set(definitions "")
set(cases "")
foreach(file IN LISTS FILES)
  get_filename_component(name ${file} NAME)
  string(MAKE_C_IDENTIFIER ${name} identifier)
  file(READ ${file} bytes HEX)
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
  string(APPEND definitions "const unsigned char k_${identifier}[] = {${bytes}};\n")
  string(APPEND cases "  if (name == \"${name}\") {\n"
                      "    return {reinterpret_cast<const char*>(k_${identifier}), "
                      "sizeof k_${identifier}};\n  }\n")
endforeach()
file(WRITE ${TARGET}
"#include \"report/EmbeddedFiles.h\"
namespace lamkit {
namespace {
${definitions}}  // namespace
std::string_view embeddedFile(const std::string_view name) {
${cases}  return {};
}
}  // namespace lamkit
")
