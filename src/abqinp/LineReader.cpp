#include "abqinp/LineReader.h"

#include <cstring>
#include <istream>

namespace abqinp {
namespace {

constexpr std::size_t kPiece = 32768;

}  // namespace

LineReader::LineReader(std::istream& in) : in_(in), buffer_(kPiece) {}

bool LineReader::next(std::string_view& line) {
  std::size_t searched = 0;  // how much of the unfinished line holds no line feed
  while (true) {
    const std::string_view rest(buffer_.data() + begin_, end_ - begin_);
    const std::size_t feed = rest.find('\n', searched);
    if (feed != std::string_view::npos) {
      line = rest.substr(0, feed);
      begin_ += feed + 1;
      return true;
    }
    searched = rest.size();
    if (!readMore()) {
      line = {buffer_.data() + begin_, end_ - begin_};
      begin_ = end_;
      return !line.empty();
    }
  }
}

bool LineReader::readMore() {
  std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
  end_ -= begin_;
  begin_ = 0;
  if (end_ == buffer_.size()) {
    buffer_.resize(2 * buffer_.size());
  }
  in_.read(buffer_.data() + end_, static_cast<std::streamsize>(buffer_.size() - end_));
  end_ += static_cast<std::size_t>(in_.gcount());
  return in_.gcount() > 0;
}

}  // namespace abqinp
