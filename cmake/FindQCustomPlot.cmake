# SPDX-License-Identifier: GPL-3.0-or-later

# Finds QCustomPlot built for Qt 6 and makes the target QCustomPlot::QCustomPlot: by the package configuration that
# Debian installs, by pkg-config, or by header and library. Call it after find_package(Qt6).

find_package(QCustomPlotQt6 CONFIG QUIET)
if(TARGET QCustomPlotQt6::QCustomPlotQt6)
  set(QCustomPlot_TARGET QCustomPlotQt6::QCustomPlotQt6)
else()
  find_package(PkgConfig QUIET)
  if(PkgConfig_FOUND)
    pkg_search_module(PC_QCustomPlot QUIET QCustomPlotQt6 qcustomplot-qt6 qcustomplot)
  endif()
  find_path(QCustomPlot_INCLUDE_DIR qcustomplot.h HINTS ${PC_QCustomPlot_INCLUDE_DIRS})
  find_library(QCustomPlot_LIBRARY NAMES QCustomPlotQt6 qcustomplot-qt6 qcustomplot QCustomPlot
               HINTS ${PC_QCustomPlot_LIBRARY_DIRS})
  if(QCustomPlot_INCLUDE_DIR AND QCustomPlot_LIBRARY)
    set(QCustomPlot_TARGET ${QCustomPlot_LIBRARY})
  endif()
  mark_as_advanced(QCustomPlot_INCLUDE_DIR QCustomPlot_LIBRARY)
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(QCustomPlot REQUIRED_VARS QCustomPlot_TARGET REASON_FAILURE_MESSAGE
                                  "QCustomPlot for Qt 6 is needed (Debian: libqcustomplot-dev)")

if(QCustomPlot_FOUND AND NOT TARGET QCustomPlot::QCustomPlot)
  add_library(QCustomPlot::QCustomPlot INTERFACE IMPORTED)
  target_link_libraries(QCustomPlot::QCustomPlot INTERFACE ${QCustomPlot_TARGET} Qt6::Widgets Qt6::PrintSupport)
  if(QCustomPlot_INCLUDE_DIR)
    target_include_directories(QCustomPlot::QCustomPlot SYSTEM INTERFACE ${QCustomPlot_INCLUDE_DIR})
  endif()
endif()
