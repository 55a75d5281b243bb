// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_DATAFILE_MATERIALXML_H
#define LAMCRAFT_DATAFILE_MATERIALXML_H

#include <string>

#include <tinyxml.h>

#include "model/Composite.h"
#include "model/EnvironmentRecord.h"

namespace lamcraft {

/// A data file of a solved composite: builds the document and saves it. Lives for one file; reads
/// the composite and never changes it.
class MaterialXML : public TiXmlDocument {
 public:
  /// path: the file to write.
  explicit MaterialXML(const std::string& path);
  MaterialXML(const MaterialXML&) = delete;
  MaterialXML& operator=(const MaterialXML&) = delete;

  /// Appends what this kind of composite adds to the "composite" element of an environment.
  virtual void writeCompositeBlock(TiXmlElement& element,
                                   const EnvironmentRecord& environment) const = 0;

  /// Appends the "constituent" elements of an environment.
  virtual void writeConstituentBlocks(TiXmlElement& element,
                                      const EnvironmentRecord& environment) const = 0;

  /// Builds the document and saves it over what stands at the path. False when the file is not
  /// whole; it is then the beginning of one, or not there.
  /// fatigueMode: with the results that only the fatigue data file holds.
  bool writeDocument(const Composite& composite, bool fatigueMode);

 protected:
  /// The composite that is being written.
  [[nodiscard]] const Composite& composite() const noexcept { return *composite_; }
  [[nodiscard]] bool fatigueMode() const noexcept { return fatigueMode_; }

 private:
  [[nodiscard]] bool save() const;
  void writeMaterial(TiXmlElement& root) const;
  void writeEnvironment(TiXmlElement& root, const EnvironmentRecord& environment) const;
  void writeSolver(TiXmlElement& element, const EnvironmentRecord& environment) const;

  bool fatigueMode_ = false;
  const Composite* composite_ = nullptr;
};

}  // namespace lamcraft

#endif
