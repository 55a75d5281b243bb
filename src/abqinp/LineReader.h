#ifndef LAMCRAFT_ABQINP_LINEREADER_H
#define LAMCRAFT_ABQINP_LINEREADER_H

#include <cstddef>
#include <iosfwd>
#include <string_view>
#include <vector>

namespace abqinp {

/// Hands out a stream's lines, read in large pieces. Lines end at line feeds; the last one needs
/// none, and nothing after the last line feed is no line.
class LineReader {
 public:
  explicit LineReader(std::istream& in);

  /// Sets `line` to the next line without its line feed, valid until the next call. False at the
  /// end of the stream.
  bool next(std::string_view& line);

 private:
  bool readMore();

  std::istream& in_;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;  // of what was not handed out yet
  std::size_t end_ = 0;
};

}  // namespace abqinp

#endif
