#ifndef LAMCRAFT_ABQINP_INPUTFILE_H
#define LAMCRAFT_ABQINP_INPUTFILE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "abqinp/DeckBlocks.h"
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
  /// nothing, when the file cannot be opened or cannot be read to an end, such as a folder or a
  /// FIFO that nobody writes.
  void read(const std::string& path);

  /// Puts the cursor before the first block.
  void restart() noexcept;
  /// Moves the cursor on; false, with no current block, past the last one. Raises
  /// std::out_of_range ("Keyword index out of range") past 2^31 blocks.
  bool nextKeyword();
  /// The block at the cursor, null before the first and past the last; valid until the cursor
  /// moves.
  [[nodiscard]] const Keyword* currentKeyword() const noexcept {
    return isAtBlock_ ? &current_ : nullptr;
  }

  /// The number of blocks, comments included.
  [[nodiscard]] std::size_t countKeywords() const noexcept { return blocks_.count(); }
  /// The number of blocks of exactly that name.
  [[nodiscard]] std::size_t countKeywords(std::string_view name) const {
    return blocks_.count(name);
  }

  /// Writes every block to `path`, in place of what is there. Raises std::runtime_error ("Could
  /// not open file " path) when it cannot be opened, and ("Could not write file " path) when it
  /// then does not take all, as on a full disk.
  void write(const std::string& path, bool inWrittenOrder) const;

 protected:
  /// Raises std::out_of_range ("Keyword index out of range") when `index` exceeds 32 bits.
  static void requireIndex(std::uint64_t index);

 private:
  DeckBlocks blocks_;
  DeckBlocks::Place place_;  // behind the current block
  Keyword current_;
  bool isAtBlock_ = false;
};

}  // namespace abqinp

#endif
