// SPDX-License-Identifier: BSD-3-Clause
#include "solve/DeckList.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <map>
#include <system_error>

#include "command/Context.h"

namespace lamkit {

namespace {

std::optional<std::size_t> numberFrom(const std::string_view text) {
  std::size_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || rest != end) {
    return std::nullopt;
  }
  return number;
}

/// Folder names that the file system takes for one.
std::string keyOf(std::string name) {
#ifdef _WIN32
  std::transform(name.begin(), name.end(), name.begin(), [](const char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
#endif
  return name;
}

}  // namespace

std::optional<Chunk> chunkFrom(const std::string_view text) {
  const std::size_t slash = text.find('/');
  if (slash == std::string_view::npos) {
    return std::nullopt;
  }
  const auto index = numberFrom(text.substr(0, slash));
  const auto count = numberFrom(text.substr(slash + 1));
  if (!index || !count || *index < 1 || *index > *count) {
    return std::nullopt;
  }
  return Chunk{*index, *count};
}

std::vector<DeckJob> jobsOf(const std::vector<std::string>& decks) {
  std::vector<DeckJob> jobs;
  jobs.reserve(decks.size());
  std::map<std::string, std::string> deckOfName;
  for (const std::string& deck : decks) {
    const std::string name = std::filesystem::path(deck).stem().string();
    if (name.empty() || name.front() == '.') {
      throw Failure(deck, "its name gives no name for a folder: call the deck NAME.qdk");
    }
    const auto [first, isNew] = deckOfName.emplace(keyOf(name), deck);
    if (!isNew) {
      throw Failure(deck, "its folder would be that of " + first->second + ": rename one of them");
    }
    jobs.push_back({deck, name});
  }
  return jobs;
}

std::vector<DeckJob> shareOf(const std::vector<DeckJob>& jobs, const Chunk& chunk) {
  std::vector<DeckJob> share;
  for (std::size_t i = chunk.index - 1; i < jobs.size(); i += chunk.count) {
    share.push_back(jobs[i]);
  }
  return share;
}

std::vector<std::string> readDeckList(std::istream& in) {
  std::vector<std::string> decks;
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') {
      line.pop_back();
    }
    if (!line.empty()) {
      decks.push_back(line);
    }
  }
  return decks;
}

}  // namespace lamkit
