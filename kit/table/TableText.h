// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_TABLE_TABLETEXT_H
#define LAMKIT_TABLE_TABLETEXT_H

#include <ostream>
#include <string>
#include <vector>

#include "table/Row.h"

namespace lamkit {

/// Writes the column names as a record of CSV (RFC 4180 with LF at the ends of lines).
void writeCsvHead(std::ostream& out);

/// Writes a row as a record of CSV. Numbers have the fewest digits that give them back, and a dot
/// in every locale; "nan" and "inf" are what spreadsheets and pandas read as such. Empty cells are
/// empty fields.
void writeCsv(std::ostream& out, const std::vector<Cell>& row);

/// Writes a row as a JSON object on a line of its own, its keys the column names. Empty cells and
/// numbers that JSON does not have are null; bytes that are not UTF-8 become the replacement
/// character.
void writeJson(std::ostream& out, const std::vector<Cell>& row);

}  // namespace lamkit

#endif
