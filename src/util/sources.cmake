# Range lists, paths, message texts, instrument data items, text fitting, and
# programs: starting them, handing arguments to a running instance, manuals and
# installed versions.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/data_items.cpp
  ${CMAKE_CURRENT_LIST_DIR}/error_message.cpp
  ${CMAKE_CURRENT_LIST_DIR}/instance_channel.cpp
  ${CMAKE_CURRENT_LIST_DIR}/paths.cpp
  ${CMAKE_CURRENT_LIST_DIR}/programs.cpp
  ${CMAKE_CURRENT_LIST_DIR}/range_parse.cpp
  ${CMAKE_CURRENT_LIST_DIR}/string_split.cpp
  ${CMAKE_CURRENT_LIST_DIR}/text_fit.cpp)
