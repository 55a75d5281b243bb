// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_REPORT_REPORTDATA_H
#define LAMKIT_REPORT_REPORTDATA_H

#include <cstddef>
#include <nlohmann/json.hpp>

#include "findings/Finding.h"
#include "verdict/Subject.h"

namespace lamkit {

/// What a report shows of one folder: verdict and findings, and for every environment the start
/// values beside the ply, what the fit changed, constants over the angle, strengths, shear and S-N
/// curves, damage states. Numbers are in newton, metre and kelvin; what is no number is null.
/// At most `maxEnvironments` environments are taken.
[[nodiscard]] nlohmann::ordered_json reportData(const Subject& subject,
                                                const FileFindings& verdict,
                                                std::size_t maxEnvironments);

}  // namespace lamkit

#endif
