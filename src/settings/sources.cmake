# The settings store behind CVRegKey: values and names, the memory and SQLite stores,
# transactions, damaged-file handling and the suite-wide settings.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/damaged_files.cpp
  ${CMAKE_CURRENT_LIST_DIR}/memory_store.cpp
  ${CMAKE_CURRENT_LIST_DIR}/reg_key.cpp
  ${CMAKE_CURRENT_LIST_DIR}/settings_transaction.cpp
  ${CMAKE_CURRENT_LIST_DIR}/sqlite_codec.cpp
  ${CMAKE_CURRENT_LIST_DIR}/sqlite_file.cpp
  ${CMAKE_CURRENT_LIST_DIR}/sqlite_store.cpp
  ${CMAKE_CURRENT_LIST_DIR}/store_registry.cpp
  ${CMAKE_CURRENT_LIST_DIR}/suite_settings.cpp)
# Key names and typed values, as the registry-file reader of arvenis-settings reads them.
target_sources(vglobal_readers_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/settings_names.cpp
  ${CMAKE_CURRENT_LIST_DIR}/settings_value.cpp)
