# Sources of this subsystem; each file here adds its own units.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/unicode.cpp
  ${CMAKE_CURRENT_LIST_DIR}/format.cpp
  ${CMAKE_CURRENT_LIST_DIR}/cstring.cpp
  ${CMAKE_CURRENT_LIST_DIR}/variant.cpp
  ${CMAKE_CURRENT_LIST_DIR}/filestatus.cpp
  ${CMAKE_CURRENT_LIST_DIR}/resources.cpp)
