# The platform seam, its POSIX parts and the headless defaults.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/command_line.cpp
  ${CMAKE_CURRENT_LIST_DIR}/drag_drop.cpp
  ${CMAKE_CURRENT_LIST_DIR}/file_filter.cpp
  ${CMAKE_CURRENT_LIST_DIR}/headless_platform.cpp
  ${CMAKE_CURRENT_LIST_DIR}/platform.cpp
  ${CMAKE_CURRENT_LIST_DIR}/platform_dialogs.cpp
  ${CMAKE_CURRENT_LIST_DIR}/platform_services.cpp
  ${CMAKE_CURRENT_LIST_DIR}/platform_windows.cpp
  ${CMAKE_CURRENT_LIST_DIR}/posix_platform.cpp
  ${CMAKE_CURRENT_LIST_DIR}/process_spawn.cpp)
