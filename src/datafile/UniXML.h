// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_DATAFILE_UNIXML_H
#define LAMCRAFT_DATAFILE_UNIXML_H

#include "datafile/MaterialXML.h"

namespace lamcraft {

/// The data files of a unidirectional composite.
class UniXML : public MaterialXML {
 public:
  using MaterialXML::MaterialXML;

  /// Strengths, fatigue tests, critical invariants, fracture and cohesive properties, nonlinear
  /// shear.
  void writeCompositeBlock(TiXmlElement& element,
                           const EnvironmentRecord& environment) const override;

  /// The matrix and the fiber.
  void writeConstituentBlocks(TiXmlElement& element,
                              const EnvironmentRecord& environment) const override;

 private:
  void writeConstituent(TiXmlElement& element,
                        const char* name,
                        const PropertySet& properties,
                        const EnvironmentRecord& environment) const;
};

}  // namespace lamcraft

#endif
