#include "abqinp/ParameterList.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace abqinp {
namespace {

void writeParameter(std::ostream& out, const std::string& name, const std::string& value) {
  out << ", " << name;
  if (!value.empty()) {
    out << '=' << value;
  }
}

}  // namespace

void ParameterList::addLine(std::string_view parameters) {
  while (order_.size() < values_.size()) {
    order_.push_back(std::move(behind_.back()));
    behind_.pop_back();
  }
  // From the right, so that of two values for one name the left one is stored last.
  while (true) {
    const std::size_t comma = parameters.rfind(',');
    if (comma == std::string_view::npos) {
      add(parameters);
      return;
    }
    add(parameters.substr(comma + 1));
    parameters.remove_suffix(parameters.size() - comma);
  }
}

void ParameterList::add(const std::string_view parameter) {
  if (parameter.empty()) {
    return;
  }
  const std::size_t equals = std::min(parameter.find('='), parameter.size());
  std::string name(parameter.substr(0, equals));
  const std::string_view value = parameter.substr(std::min(equals + 1, parameter.size()));
  values_.insert_or_assign(name, std::string(value));
  behind_.push_back(std::move(name));
}

const std::string* ParameterList::find(const std::string_view name) const {
  const auto found = values_.find(name);
  return found == values_.end() ? nullptr : &found->second;
}

void ParameterList::write(std::ostream& out, const bool inWrittenOrder) const {
  if (!inWrittenOrder) {
    for (const auto& [name, value] : values_) {
      writeParameter(out, name, value);
    }
    return;
  }
  const auto writeNamed = [&](const std::string& name) { writeParameter(out, name, *find(name)); };
  std::for_each(order_.begin(), order_.end(), writeNamed);
  std::for_each(behind_.rbegin(), behind_.rend(), writeNamed);
}

}  // namespace abqinp
