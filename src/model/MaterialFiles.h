// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MODEL_MATERIALFILES_H
#define LAMCRAFT_MODEL_MATERIALFILES_H

/// The three files of a material folder.
namespace lamcraft {

inline constexpr const char* kDeckCopy = "input.qdk";
inline constexpr const char* kMaterialData = "mdata.xml";
inline constexpr const char* kFatigueData = "fdata.xml";

}  // namespace lamcraft

#endif
