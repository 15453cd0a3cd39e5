# The user's default processing method and component in the settings store, one
# file per settings section.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/adv_detection.cpp
  ${CMAKE_CURRENT_LIST_DIR}/calibration.cpp
  ${CMAKE_CURRENT_LIST_DIR}/component.cpp
  ${CMAKE_CURRENT_LIST_DIR}/component_detection.cpp
  ${CMAKE_CURRENT_LIST_DIR}/component_identification.cpp
  ${CMAKE_CURRENT_LIST_DIR}/explore.cpp
  ${CMAKE_CURRENT_LIST_DIR}/flags.cpp
  ${CMAKE_CURRENT_LIST_DIR}/level_io.cpp
  ${CMAKE_CURRENT_LIST_DIR}/levels.cpp
  ${CMAKE_CURRENT_LIST_DIR}/named_component.cpp
  ${CMAKE_CURRENT_LIST_DIR}/options.cpp
  ${CMAKE_CURRENT_LIST_DIR}/peak_detection.cpp
  ${CMAKE_CURRENT_LIST_DIR}/proc_method.cpp
  ${CMAKE_CURRENT_LIST_DIR}/programs.cpp
  ${CMAKE_CURRENT_LIST_DIR}/qual_constraints.cpp
  ${CMAKE_CURRENT_LIST_DIR}/qual_library_search.cpp
  ${CMAKE_CURRENT_LIST_DIR}/qual_spectrum_enhance.cpp
  ${CMAKE_CURRENT_LIST_DIR}/reports.cpp
  ${CMAKE_CURRENT_LIST_DIR}/summary_reports.cpp
  ${CMAKE_CURRENT_LIST_DIR}/system_suitability.cpp)
