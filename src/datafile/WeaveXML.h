// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_DATAFILE_WEAVEXML_H
#define LAMCRAFT_DATAFILE_WEAVEXML_H

#include <string_view>
#include <vector>

#include "datafile/MaterialXML.h"
#include "model/DamageStateRecord.h"

namespace lamcraft {

/// The data files of a woven composite: every constituent with one property set and one stress and
/// strain decomposition for each damage state.
class WeaveXML : public MaterialXML {
 public:
  using MaterialXML::MaterialXML;

  /// Property sets of the damage states from the second on (the environment's own is the first),
  /// strengths, fatigue tests, nonlinear shear.
  void writeCompositeBlock(TiXmlElement& element,
                           const EnvironmentRecord& environment) const override;

  /// Matrix pocket, fill and warp with what they are made of, and the interface.
  void writeConstituentBlocks(TiXmlElement& element,
                              const EnvironmentRecord& environment) const override;

 private:
  void writeConstituentsOf(std::string_view owner,
                           TiXmlElement& element,
                           const EnvironmentRecord& environment) const;
  [[nodiscard]] const std::vector<DamageStateRecord>& states(
      const EnvironmentRecord& environment) const noexcept;
};

}  // namespace lamcraft

#endif
