// SPDX-License-Identifier: BSD-3-Clause
#include "PlainDeck.h"

#include <cctype>
#include <cstddef>
#include <sstream>

namespace {

std::string normalised(std::string line) {
  if (!line.empty() && line.back() == '\r') {
    line.pop_back();
  }
  std::string text;
  std::size_t i = 0;
  while (i < line.size()) {
    if (line[i] == '"') {
      const std::size_t close = line.find('"', i + 1);
      const std::size_t end = close == std::string::npos ? line.size() : close + 1;
      text += line.substr(i, end - i);
      i = end;
      continue;
    }
    const int code = static_cast<unsigned char>(line[i++]);
    if (code > 127 || std::isspace(code) == 0) {
      text += static_cast<char>(code > 127 ? code : std::toupper(code));
    }
  }
  return text;
}

std::vector<std::string> split(const std::string& line) {
  std::vector<std::string> values(1);
  for (const char c : line) {
    if (c == ',') {
      values.emplace_back();
    } else {
      values.back() += c;
    }
  }
  return values;
}

bool isComment(const std::string& line) {
  const std::size_t star = line.find('*');
  return star != std::string::npos && line.substr(star, 2) == "**";
}

void parseParameters(PlainBlock& block, const std::vector<std::string>& tokens, std::size_t first) {
  const auto place = static_cast<std::ptrdiff_t>(block.parameters.size());
  for (std::size_t i = tokens.size(); i > first; --i) {
    const std::string& token = tokens[i - 1];
    if (token.empty()) {
      continue;
    }
    const std::size_t equals = token.find('=');
    const std::string name = token.substr(0, equals);
    block.parameters[name] = equals == std::string::npos ? "" : token.substr(equals + 1);
    block.order.insert(block.order.begin() + place, name);
  }
}

class PlainReader {
 public:
  void addLine(const std::string& raw) {
    if (isComment(raw)) {
      push();
      PlainBlock comment;
      comment.comment = raw.back() == '\r' ? raw.substr(0, raw.size() - 1) : raw;
      blocks_.push_back(comment);
      return;
    }
    const std::string line = normalised(raw);
    if (!line.empty() && line[0] == '*') {
      push();
      const std::vector<std::string> tokens = split(line.substr(1));
      current_.name = tokens[0];
      parseParameters(current_, tokens, 1);
      isContinued_ = line.back() == ',';
      return;
    }
    takeBack();
    if (isContinued_) {
      parseParameters(current_, split(line), 0);
      isContinued_ = !line.empty() && line.back() == ',';
    } else {
      current_.lines.push_back(line.empty() ? std::vector<std::string>() : split(line));
    }
  }

  std::vector<PlainBlock> finish() {
    push();
    for (PlainBlock& block : blocks_) {
      while (!block.lines.empty() && block.lines.back().empty()) {
        block.lines.pop_back();
      }
    }
    return blocks_;
  }

 private:
  void push() {
    if (!current_.name.empty()) {
      blocks_.push_back(current_);
    }
    current_ = PlainBlock();
  }

  void takeBack() {
    if (!current_.name.empty()) {
      return;
    }
    for (std::size_t i = blocks_.size(); i > 0; --i) {
      if (blocks_[i - 1].comment.empty()) {
        current_ = blocks_[i - 1];
        blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(i - 1));
        return;
      }
    }
  }

  std::vector<PlainBlock> blocks_;
  PlainBlock current_;
  bool isContinued_ = false;
};

}  // namespace

std::string PlainBlock::toText(const bool inWrittenOrder) const {
  if (!comment.empty()) {
    return comment + "\n";
  }
  std::vector<std::string> names = order;
  if (!inWrittenOrder) {
    names.clear();
    for (const auto& entry : parameters) {
      names.push_back(entry.first);
    }
  }
  std::string text = "*" + name;
  for (const std::string& parameter : names) {
    const std::string& value = parameters.at(parameter);
    text += ", " + parameter + (value.empty() ? "" : "=" + value);
  }
  text += "\n";
  for (const auto& values : lines) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      text += (i == 0 ? "" : ", ") + values[i];
    }
    text += "\n";
  }
  return text;
}

std::vector<PlainBlock> plainBlocks(const std::string& deck) {
  PlainReader reader;
  std::istringstream in(deck);
  std::string line;
  while (std::getline(in, line)) {
    reader.addLine(line);
  }
  return reader.finish();
}
