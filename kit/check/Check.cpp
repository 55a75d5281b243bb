#include "check/Check.h"

#include <fstream>
#include <iterator>

#include "check/TextRules.h"
#include "command/Context.h"

namespace lamkit {

namespace {

std::string contentOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::string content{std::istreambuf_iterator<char>(in), {}};
  if (!in.is_open()) {
    throw Failure(path, "cannot be opened");
  }
  if (in.bad()) {
    throw Failure(path, "cannot be read");
  }
  return content;
}

}  // namespace

FileFindings checkDeck(const std::string& path) {
  FileFindings result{path, checkText(contentOf(path))};
  for (Finding& finding : result.findings) {
    finding.file = path;
  }
  return result;
}

}  // namespace lamkit
