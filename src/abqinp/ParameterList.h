#ifndef LAMCRAFT_ABQINP_PARAMETERLIST_H
#define LAMCRAFT_ABQINP_PARAMETERLIST_H

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace abqinp {

/// The parameters of one keyword: a value per name, and the names in the order they were written.
///
/// The order keeps a name that was written twice twice. Of two on one line the left one's value
/// stays; a later line overwrites the values of earlier ones.
class ParameterList {
 public:
  /// Adds the comma-separated parameters of one line, each "NAME" or "NAME=VALUE"; empty ones are
  /// skipped. They come into the order behind as many names as there were different ones before.
  void addLine(std::string_view parameters);

  /// The value of `name`, null when there is no such parameter.
  [[nodiscard]] const std::string* find(std::string_view name) const;

  /// Writes ", NAME" or ", NAME=VALUE" for each: by name, or in written order.
  void write(std::ostream& out, bool inWrittenOrder) const;

 private:
  void add(std::string_view parameter);

  std::map<std::string, std::string, std::less<>> values_;
  // The order is order_ and then behind_ from its back. Lines come in at a place that only moves
  // towards the end, so each name moves at most once, however many lines there are.
  std::vector<std::string> order_;
  std::vector<std::string> behind_;
};

}  // namespace abqinp

#endif
