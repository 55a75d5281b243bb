// SPDX-License-Identifier: BSD-3-Clause
#include "folder/MaterialFolder.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include <tinyxml.h>

#include "datafile/Tags.h"
#include "folder/ConstituentReading.h"
#include "folder/EnvironmentReading.h"
#include "folder/XmlReading.h"
#include "model/MaterialFiles.h"

namespace lamkit {

namespace {

constexpr int kDeepest = 32;  // a data file has seven

FolderError unreadable(const std::string& path, const int line, const std::string& reason) {
  const std::string place = line > 0 ? path + ":" + std::to_string(line) : path;
  return {FolderFault::unreadable, place + ": " + reason};
}

std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::string content(std::istreambuf_iterator<char>(file), {});
  if (!file.is_open() || file.bad()) {
    throw unreadable(path, 0, "cannot be read");
  }
  return content;
}

/// Bytes stay as they are, whatever the declaration says: a name may be in any encoding.
void parse(const std::string& content, TiXmlDocument& document) {
  if (content.find('\0') != std::string::npos || !xml::isShallow(content, kDeepest)) {
    throw xml::Fault(0, "is no data file of lamcraft");
  }
  document.Parse(content.c_str(), nullptr, TIXML_ENCODING_LEGACY);
  if (document.Error()) {
    throw xml::Fault(document.ErrorRow(),
                     std::string("is cut off or no XML (") + document.ErrorDesc() + ")");
  }
}

void readComposite(const TiXmlElement& element, MaterialData& data) {
  data.density = xml::childNumber(element, "density");
  data.count = xml::childInteger(element, "ncons");
  if (element.FirstChildElement("unitcell") != nullptr) {
    data.harness = xml::childInteger(element, "nharness");
  }
  data.referenceTemperature = xml::childProperty(element, "tref");
  data.plyThickness = xml::childProperty(element, "plyt");
}

MaterialData readDocument(const TiXmlDocument& document) {
  const TiXmlElement* const root = document.RootElement();
  if (root == nullptr || root->ValueStr() != lamcraft::xml::kRoot) {
    throw xml::Fault(root == nullptr ? 0 : root->Row(), "is no data file of lamcraft");
  }
  MaterialData data;
  data.name = xml::text(*root, "material");
  data.version = xml::text(*root, "version");
  if (data.version != lamcraft::xml::kFormatVersion) {
    throw xml::Fault(root->Row(), "has the unknown format version \"" + data.version + "\"");
  }
  readComposite(xml::child(*root, "composite"), data);
  xml::forEach(*root, "constituent", [&data](const TiXmlElement& constituent) {
    data.constituents.push_back(xml::readConstituent(constituent));
  });
  xml::forEach(*root, "environment", [&data](const TiXmlElement& environment) {
    data.environments.push_back(xml::readEnvironment(environment, data.isWoven()));
  });
  return data;
}

std::string pathOf(const std::string& folder, const char* const name) {
  return (std::filesystem::path(folder) / name).string();
}

}  // namespace

const EnvironmentData& MaterialFolder::withFatigue(const std::size_t environment) const {
  if (fatigueData.has_value() && environment < fatigueData->environments.size()) {
    return fatigueData->environments[environment];
  }
  return data.environments[environment];
}

bool holdsMaterial(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(pathOf(path, lamcraft::kMaterialData), ignored);
}

MaterialData readDataFile(const std::string& path) {
  try {
    TiXmlDocument document;
    parse(contentOf(path), document);
    return readDocument(document);
  } catch (const xml::Fault& fault) {
    throw unreadable(path, fault.line(), fault.what());
  }
}

MaterialFolder readFolder(const std::string& path) {
  std::error_code ignored;
  if (!std::filesystem::is_directory(path, ignored)) {
    throw FolderError(FolderFault::missing, path + ": there is no such folder");
  }
  if (!holdsMaterial(path)) {
    throw FolderError(FolderFault::noData,
                      path + ": there is no " + lamcraft::kMaterialData + " in this folder");
  }
  MaterialFolder folder;
  folder.path = path;
  folder.data = readDataFile(pathOf(path, lamcraft::kMaterialData));
  const std::string fatigue = pathOf(path, lamcraft::kFatigueData);
  if (std::filesystem::is_regular_file(fatigue, ignored)) {
    folder.fatigueData = readDataFile(fatigue);
  }
  const std::string deck = pathOf(path, lamcraft::kDeckCopy);
  if (std::filesystem::is_regular_file(deck, ignored)) {
    folder.deckCopy = deck;
  }
  return folder;
}

}  // namespace lamkit
