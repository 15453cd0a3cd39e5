# Sources of this subsystem; each file here adds its own units.
target_sources(vglobal_core_obj PRIVATE ${CMAKE_CURRENT_LIST_DIR}/message.cpp)
target_sources(vglobal_core_obj PRIVATE ${CMAKE_CURRENT_LIST_DIR}/file_check.cpp)
target_sources(vglobal_core_obj PRIVATE ${CMAKE_CURRENT_LIST_DIR}/file_open.cpp)
