# Sources of this subsystem; each file here adds its own units.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/platform.cpp
  ${CMAKE_CURRENT_LIST_DIR}/posix_platform.cpp
  ${CMAKE_CURRENT_LIST_DIR}/headless_platform.cpp)
# Dialog geometry and modeless dialogs: the headless defaults.
target_sources(vglobal_core_obj PRIVATE ${CMAKE_CURRENT_LIST_DIR}/platform_dialogs.cpp)
# Choosers, drag and drop: headless answers, filter text, registered formats.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/platform_services.cpp
  ${CMAKE_CURRENT_LIST_DIR}/file_filter.cpp
  ${CMAKE_CURRENT_LIST_DIR}/drag_drop.cpp)
# Messages, timers, frames, menus and transient drawing: the default bodies.
target_sources(vglobal_core_obj PRIVATE ${CMAKE_CURRENT_LIST_DIR}/platform_windows.cpp)
