# Sources of this subsystem, one block per function family.
# Range lists, paths, message texts and instrument data items.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/range_parse.cpp
  ${CMAKE_CURRENT_LIST_DIR}/paths.cpp
  ${CMAKE_CURRENT_LIST_DIR}/error_message.cpp
  ${CMAKE_CURRENT_LIST_DIR}/data_items.cpp)
# Text fitting.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/text_fit.cpp
  ${CMAKE_CURRENT_LIST_DIR}/string_split.cpp)
# Programs: starting them, handing arguments to a running instance, manuals and
# installed versions.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/programs.cpp
  ${CMAKE_CURRENT_LIST_DIR}/instance_channel.cpp)
