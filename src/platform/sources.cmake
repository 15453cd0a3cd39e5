# Sources of this subsystem; each file here adds its own units.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/platform.cpp
  ${CMAKE_CURRENT_LIST_DIR}/posix_platform.cpp
  ${CMAKE_CURRENT_LIST_DIR}/headless_platform.cpp)
# Dialog geometry and modeless dialogs: the headless defaults.
target_sources(vglobal_core_obj PRIVATE ${CMAKE_CURRENT_LIST_DIR}/platform_dialogs.cpp)
