# SPDX-License-Identifier: BSD-3-Clause
# The header-only packages of the engine, as this machine has them; read after project().
include(${CMAKE_CURRENT_LIST_DIR}/WindowsSources.cmake)
set(Eigen3_DIR /usr/share/eigen3/cmake CACHE PATH "Eigen's package file")
lamcraft_shown_headers(ceres ceres_headers)
set(CERES_INCLUDE_DIR ${ceres_headers} CACHE PATH "Folder of the headers of Ceres")
