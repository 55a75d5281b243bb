// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_FUZZ_PROMISES_H
#define LAMCRAFT_TESTS_FUZZ_PROMISES_H

#include <cstdint>

#include "contract/Argument.h"
#include "contract/ContractCalls.h"
#include "elastic/Properties.h"

/// What the engine promises of every answer, whatever it was asked (docs/engine.md). The process
/// ends with a text where an answer keeps no promise.
namespace lamcraft::fuzz {

/// Constituents that make no ply, or a fit with no sense, come back as no numbers. Others come back
/// admissible, in their symmetry and their bounds, with the composite that they give and its error.
/// `isFlagged`: the matrix was said to be isotropic.
void requirePromised(const kx::test::UniOptimization& before,
                     const kx::test::UniOptimization& after,
                     bool isFlagged);
void requirePromised(const kx::test::WeaveOptimization& before,
                     const kx::test::WeaveOptimization& after,
                     bool isFlagged);

/// A law that falls from 1, or none and a reason.
void requirePromised(const kx::test::ShearReduction& call);

/// Admissible parts of a woven ply, or no numbers at all where those given make none.
void requirePromised(const kx::test::WeaveDamageState& before,
                     const kx::test::WeaveDamageState& after,
                     bool isFlagged);

/// Constants of the model, or zeros; zeros where no intact weave was noted.
void requirePromised(const kx::test::FatiguePwOpti& call, bool isNoted);

/// Default properties of the system with this number.
void requireDefaults(std::int32_t system,
                     const kx::test::Out<double, 12>& fiber,
                     const kx::test::Out<double, 12>& matrix);

/// Whether these numbers make a woven ply, which takes long to solve.
bool makesAPly(const kx::test::Weave& weave,
               const kx::Properties& fiber,
               const kx::Properties& matrix,
               bool isFlagged);

}  // namespace lamcraft::fuzz

#endif
