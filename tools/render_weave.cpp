// SPDX-License-Identifier: BSD-3-Clause
// Draws the voxel model of a weave's unit cell as SVG: the ply from above, and a section along the
// middle of a fill tow.
//
//   render_weave HARNESS VOXELS_PER_TOW VOXELS_THROUGH_THICKNESS > weave.svg

#include <array>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "weave/cell/UnitCell.h"

namespace {

constexpr double kWidth = 360.0;      // of either view [px]
constexpr double kStretch = 2.0;      // of the section's heights
constexpr double kTowFraction = 0.4;  // of fill and warp each
constexpr int kShades = 6;

using Color = std::array<double, 3>;
constexpr Color kPocketColor{236, 236, 228};
constexpr Color kFillColor{46, 106, 168};
constexpr Color kWarpColor{222, 126, 44};

std::string text(const Color& color) {
  std::string result = "#";
  for (const double channel : color) {
    const auto value = static_cast<unsigned>(std::lround(channel));
    result += "0123456789abcdef"[value / 16];
    result += "0123456789abcdef"[value % 16];
  }
  return result;
}

std::string number(const double value) {
  const long hundredths = std::lround(value * 100);
  std::string digits = std::to_string(hundredths % 100);
  if (digits.size() == 1) {
    digits.insert(0, "0");
  }
  return std::to_string(hundredths / 100) + "." + digits;
}

/// Pixels of equal colour, drawn as one path of runs.
class Raster {
 public:
  Raster(const int columns, const int rows) : columns_(columns), pixels_(at(rows, 0)) {}

  void set(const int column, const int row, const Color& color) {
    pixels_[at(row, column)] = text(color);
  }

  void draw(const double left, const double top, const double width, const double height) const {
    const int rows = static_cast<int>(pixels_.size()) / columns_;
    std::map<std::string, std::string> paths;
    for (int row = 0; row < rows; ++row) {
      for (int begin = 0; begin < columns_;) {
        const std::string& color = pixels_[at(row, begin)];
        int end = begin;
        while (end < columns_ && pixels_[at(row, end)] == color) {
          ++end;
        }
        paths[color] += rectangle(begin, row, std::to_string(end - begin));
        begin = end;
      }
    }
    std::cout << "<g transform=\"translate(" << number(left) << ' ' << number(top) << ") scale("
              << number(width / columns_) << ' ' << number(height / rows)
              << ")\" shape-rendering=\"crispEdges\">\n";
    for (const auto& [color, path] : paths) {
      std::cout << "<path fill=\"" << color << "\" d=\"" << path << "\"/>\n";
    }
    std::cout << "</g>\n";
  }

 private:
  [[nodiscard]] std::size_t at(const int row, const int column) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
           static_cast<std::size_t>(column);
  }

  /// A path around a row of pixels.
  static std::string rectangle(const int column, const int row, const std::string& length) {
    std::string path = "M" + std::to_string(column);
    path.append(" ").append(std::to_string(row)).append("h").append(length);
    return path.append("v1h-").append(length).append("z");
  }

  int columns_;
  std::vector<std::string> pixels_;
};

Color mixed(const std::array<double, kx::kCellPhases>& fractions) {
  Color color{};
  for (std::size_t channel = 0; channel < 3; ++channel) {
    const auto part = [&](const kx::CellPhase phase, const Color& own) {
      return std::round(fractions[phase] * kShades) / kShades * own[channel];
    };
    color[channel] = std::min(255.0,
                              part(kx::kPocket, kPocketColor) + part(kx::kFill, kFillColor) +
                                  part(kx::kWarp, kWarpColor));
  }
  return color;
}

/// The upper tow of a column, darker the deeper it lies.
Color seenFromAbove(const kx::UnitCell& cell, const kx::WeaveColumn& column) {
  const bool fillAbove = column.fill.length() > 0.0 && column.fill.upper > column.warp.upper;
  const kx::Interval& tow = fillAbove ? column.fill : column.warp;
  if (!(tow.length() > 0.0)) {
    return kPocketColor;
  }
  const double depth = 0.5 - tow.upper / cell.geometry().thickness();  // 0 at the ply's face
  const double light = 1.0 - 0.5 * std::round(depth * kShades) / kShades;
  Color color = fillAbove ? kFillColor : kWarpColor;
  for (double& channel : color) {
    channel *= light;
  }
  return color;
}

/// The column at any place of the whole repeat, of which the cell may hold a part.
const kx::WeaveColumn& columnAt(const kx::UnitCell& cell, const int i, const int j) {
  const kx::GridShape& shape = cell.shape();
  const int row = (j - i / shape.n1 * shape.shift2) % shape.n2;
  return cell.column(i % shape.n1, row < 0 ? row + shape.n2 : row);
}

void render(const kx::UnitCell& cell) {
  const kx::GridShape& shape = cell.shape();
  const double pixel = kWidth / shape.n2;
  const double height = kStretch * cell.geometry().thickness() / shape.h1 * pixel;
  Raster above(shape.n2, shape.n2);
  Raster section(shape.n2, shape.n3);
  const int middle = cell.resolution().perTow / 2;
  for (int i = 0; i < shape.n2; ++i) {
    for (int j = 0; j < shape.n2; ++j) {
      above.set(i, shape.n2 - 1 - j, seenFromAbove(cell, columnAt(cell, i, j)));
    }
    for (int k = 0; k < shape.n3; ++k) {
      section.set(i, shape.n3 - 1 - k, mixed(cell.fractions(columnAt(cell, i, middle), k)));
    }
  }
  std::cout << R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 )" << number(kWidth) << ' '
            << number(kWidth + 12 + height) << "\">\n";
  above.draw(0, 0, kWidth, kWidth);
  section.draw(0, kWidth + 12, kWidth, height);
  std::cout << "</svg>\n";
}

}  // namespace

int main(const int count, char** arguments) {
  if (count != 4) {
    std::cerr << "usage: render_weave HARNESS VOXELS_PER_TOW VOXELS_THROUGH_THICKNESS\n";
    return 2;
  }
  const auto pattern = kx::InterlacingPattern::ofHarness(std::atoi(arguments[1]));
  const kx::CellResolution resolution{std::atoi(arguments[2]), std::atoi(arguments[3])};
  if (!pattern || resolution.perTow < 1 || resolution.throughThickness < 1) {
    std::cerr << "render_weave: harness 1, 4, 5 or 8 and at least one voxel\n";
    return 2;
  }
  const double thickness = kx::WeaveGeometry::defaultThickness(pattern->tows());
  render(kx::UnitCell({*pattern, kTowFraction, kTowFraction, thickness}, resolution));
  return 0;
}
