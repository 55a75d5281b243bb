#ifndef LAMCRAFT_ABQINP_NORMALISATION_H
#define LAMCRAFT_ABQINP_NORMALISATION_H

#include <string>
#include <string_view>

namespace abqinp {

/// The line without a trailing carriage return.
std::string_view withoutCarriageReturn(std::string_view line) noexcept;

/// Whether the first "*" of the line is followed by another one.
bool isCommentLine(std::string_view line) noexcept;

/// Writes `line` into `normalised` in upper case and without white space, as the C locale has
/// them; what stands in double quotes stays as it is, and so does all that follows a quote which
/// nothing closes. One trailing carriage return is removed first. Bytes above 127 stay.
void normalise(std::string_view line, std::string& normalised);

}  // namespace abqinp

#endif
