// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_ABQINP_INPUTFILE_H
#define LAMCRAFT_ABQINP_INPUTFILE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "abqinp/Keyword.h"

namespace abqinp {

/// A keyword deck: its blocks in stored order and a cursor that walks over them.
///
/// It splits, normalises and stores; what keywords mean, it does not know. A comment inside a
/// keyword's data is stored before that keyword, and data before the first keyword are dropped.
class InputFile {
 public:
  InputFile() = default;
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  virtual ~InputFile() = default;

  /// Reads the deck at `path` in place of what was read before; the cursor then stands before the
  /// first block. Raises std::runtime_error ("Could not open file " path), and then changes
  /// nothing, when the file cannot be opened, cannot be read, as a folder, or may never come to an
  /// end, as a FIFO of the file system.
  void read(const std::string& path);

  /// Puts the cursor before the first block.
  void restart() noexcept;
  /// Moves the cursor on; false, with no current block, past the last one. Raises
  /// std::out_of_range ("Keyword index out of range") past 2^31 blocks.
  bool nextKeyword();
  /// The block at the cursor, null before the first and past the last.
  [[nodiscard]] const Keyword* currentKeyword() const noexcept { return current_; }

  /// All blocks, comments included, in stored order.
  [[nodiscard]] const std::vector<Keyword>& keywords() const noexcept { return keywords_; }
  /// Their number.
  [[nodiscard]] std::size_t countKeywords() const noexcept { return keywords_.size(); }
  /// The number of blocks of exactly that name.
  [[nodiscard]] std::size_t countKeywords(std::string_view name) const;

  /// Writes every block to `path`, in place of what is there. Raises std::runtime_error ("Could
  /// not open file " path) when it cannot be opened, and ("Could not write file " path) when it
  /// then does not take all, as on a full disk.
  void write(const std::string& path, bool inWrittenOrder) const;

 protected:
  /// Raises std::out_of_range ("Keyword index out of range") when `index` exceeds 32 bits.
  static void requireIndex(std::uint64_t index);

 private:
  std::vector<Keyword> keywords_;
  std::int64_t index_ = -1;  // of the cursor
  const Keyword* current_ = nullptr;
};

}  // namespace abqinp

#endif
