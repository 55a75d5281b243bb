// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_BENCH_SAMPLEDECK_H
#define LAMCRAFT_BENCH_SAMPLEDECK_H

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

/// Decks of about a given size in the temporary folder, made once for each benchmark.
enum class DeckKind {
  data,      ///< one keyword with S-N lines
  comments,  ///< comment lines alone
  mixed,     ///< a comment between any two S-N lines
  keywords,  ///< environments of a few keywords each
};

class SampleDeck {
 public:
  SampleDeck(const DeckKind kind, const std::size_t bytes)
      : path_(std::filesystem::temp_directory_path() /
              ("lamcraft-bench-deck-" + std::to_string(std::random_device{}()))) {
    std::ofstream file(path_, std::ios::binary);
    std::string text = "*MATERIAL, TYPE=UNI, SYSTEM=CFRP, NAME=Sample\n1, 1600, 0.125e-3\n";
    text += kind == DeckKind::data || kind == DeckKind::mixed ? "*SNDATA\n" : "";
    for (std::size_t line = 0; size_ + text.size() < bytes; ++line) {
      text += lineOf(kind, line);
      if (text.size() > 1000000) {
        flush(file, text);
      }
    }
    flush(file, text);
  }
  SampleDeck(const SampleDeck&) = delete;
  SampleDeck& operator=(const SampleDeck&) = delete;
  ~SampleDeck() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
    std::filesystem::remove(copy(), ignored);
  }

  [[nodiscard]] std::string path() const { return path_.string(); }
  [[nodiscard]] std::string copy() const { return path_.string() + "-copy"; }
  [[nodiscard]] std::size_t size() const { return size_; }

 private:
  static std::string lineOf(const DeckKind kind, const std::size_t line) {
    std::string data = "0.1, " + std::to_string(1000 + 7919 * line % 9000000) + ", 1.25e8, 45.0, " +
                       std::to_string(line % 100) + "\n";
    std::string comment = "** coupon " + std::to_string(line) + " of the second batch\n";
    switch (kind) {
      case DeckKind::data:
        return data;
      case DeckKind::comments:
        return comment;
      case DeckKind::mixed:
        return data + comment;
      default:
        return "*ENVIRONMENT, MOISTURE=AMBIENT, TEMPERATURE=" + std::to_string(200 + line % 300) +
               "\n*FIBER\n230e9, 15e9, 0.2, 0.07, 15e9, -1e-6, 7e-6\n" + "*SNDATA\n" + data;
    }
  }
  void flush(std::ofstream& file, std::string& text) {
    file << text;
    size_ += text.size();
    text.clear();
  }

  std::filesystem::path path_;
  std::size_t size_ = 0;
};

#endif
