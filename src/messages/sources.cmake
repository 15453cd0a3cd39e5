# User-visible messages and the checks made when a raw or sequence file is opened.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/file_check.cpp
  ${CMAKE_CURRENT_LIST_DIR}/file_open.cpp
  ${CMAKE_CURRENT_LIST_DIR}/message.cpp)
