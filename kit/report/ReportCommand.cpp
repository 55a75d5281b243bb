// SPDX-License-Identifier: BSD-3-Clause
#include "report/ReportCommand.h"

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <set>
#include <string>
#include <system_error>
#include <vector>

#include "report/CsvFiles.h"
#include "report/Page.h"
#include "report/ReportData.h"
#include "verdict/Subject.h"
#include "verdict/Verdict.h"

namespace lamkit {

namespace {

namespace fs = std::filesystem;

/// What the command line asks for.
struct ReportRequest {
  std::vector<std::string> folders;
  std::string output;
  std::string title;
  std::size_t maxEnvironments = std::numeric_limits<std::size_t>::max();
  std::string csvFolder;  ///< empty: none
};

/// Writes beside the file and renames: what stands there is whole.
void writeWhole(const fs::path& path, const std::string& content) {
  const fs::path part = path.string() + ".part";
  std::ofstream file(part, std::ios::binary);
  file << content;
  file.close();
  std::error_code fault;
  if (file) {
    fs::rename(part, path, fault);
  }
  if (!file || fault) {
    std::error_code ignored;
    fs::remove(part, ignored);
    throw Failure(path.string(), "cannot be written");
  }
}

/// A file name of its own for each folder.
std::string csvName(const std::string& folder, std::set<std::string>& taken) {
  const fs::path path = fs::path(folder).lexically_normal();
  std::string base = (path.has_filename() ? path : path.parent_path()).filename().string();
  std::string name = base + ".csv";
  for (int i = 2; !taken.insert(name).second; ++i) {
    name = base + "-" + std::to_string(i) + ".csv";
  }
  return name;
}

Subject subjectAt(const std::string& folder) {
  try {
    return subjectIn(folder);
  } catch (const FolderError& error) {
    throw Failure(folder, error.what());
  }
}

void writeReport(const ReportRequest& request, Context& context) {
  auto materials = nlohmann::ordered_json::array();
  std::vector<std::string> csvFiles;
  for (const std::string& folder : request.folders) {
    const Subject subject = subjectAt(folder);
    const FileFindings verdict = judgeFolder(folder);
    context.raise(exitCodeOf(verdict.findings));
    materials.push_back(reportData(subject, verdict, request.maxEnvironments));
    csvFiles.push_back(request.csvFolder.empty() ? "" : decompositionsCsv(subject.folder.data));
  }
  if (!request.csvFolder.empty()) {
    std::error_code fault;
    fs::create_directories(request.csvFolder, fault);
    std::set<std::string> taken;
    for (std::size_t i = 0; i < csvFiles.size(); ++i) {
      const std::string name = csvName(request.folders[i], taken);
      if (!csvFiles[i].empty()) {
        writeWhole(fs::path(request.csvFolder) / name, csvFiles[i]);
      }
    }
  }
  const std::string title = !request.title.empty() ? request.title
                            : materials.size() == 1
                                ? materials[0]["name"].get<std::string>()
                                : std::to_string(materials.size()) + " materials";
  writeWhole(request.output, reportPage(title, materials));
}

}  // namespace

void addReport(CLI::App& program, Context& context) {
  CLI::App& command = *program.add_subcommand("report", "A page to look at, with charts");
  const auto request = std::make_shared<ReportRequest>();
  command.add_option("FOLDER", request->folders, "Material folders")->required();
  command.add_option("-o", request->output, "The page to write")->required();
  command.add_option("--title", request->title, "Title of the page");
  command.add_option("--max-environments", request->maxEnvironments, "Of each material, at most")
      ->check(CLI::PositiveNumber);
  command.add_option("--csv", request->csvFolder, "Folder for decompositions of weaves as CSV");
  command.callback([request, &context] { writeReport(*request, context); });
}

}  // namespace lamkit
