// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_FORMRULES_H
#define LAMKIT_CHECK_FORMRULES_H

#include "abqinp/Keyword.h"
#include "check/Report.h"

namespace lamkit {

/// Whether a keyword is written as the program reads it: its parameters, the words in them, and the
/// number and the form of its values. `isWoven`: of the composite that it stands in. Answers
/// whether its values are what their author meant; not so where a comma was lost or added.
bool checkForm(const abqinp::Keyword& keyword,
               bool isWoven,
               std::size_t environment,
               Report& report);

}  // namespace lamkit

#endif
