# Sources of this subsystem; each file here adds its own units.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/filter.cpp)
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/constraints.cpp
  ${CMAKE_CURRENT_LIST_DIR}/post_processing.cpp)
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/component_calibration.cpp)
