# Sources of this subsystem; each file here adds its own units.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/module.cpp
  ${CMAKE_CURRENT_LIST_DIR}/window_class.cpp
  ${CMAKE_CURRENT_LIST_DIR}/library_resources.cpp
  ${CMAKE_CURRENT_LIST_DIR}/help.cpp)
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/under_construction_template.cpp)
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/under_construction.cpp)
