# File I/O: the processing-method records, the scan filter, and the data files (raw
# files and sample lists) with their header, audit trail, data records and number format.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/base_io.cpp
  ${CMAKE_CURRENT_LIST_DIR}/component_calibration.cpp
  ${CMAKE_CURRENT_LIST_DIR}/constraints.cpp
  ${CMAKE_CURRENT_LIST_DIR}/data_file_io.cpp
  ${CMAKE_CURRENT_LIST_DIR}/filter.cpp
  ${CMAKE_CURRENT_LIST_DIR}/number_format.cpp
  ${CMAKE_CURRENT_LIST_DIR}/post_processing.cpp
  ${CMAKE_CURRENT_LIST_DIR}/raw_file.cpp
  ${CMAKE_CURRENT_LIST_DIR}/sequence.cpp)
# The codecs of data files and the CSV import: they read untrusted bytes.
target_sources(vglobal_readers_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/audit_trail.cpp
  ${CMAKE_CURRENT_LIST_DIR}/byte_codec.cpp
  ${CMAKE_CURRENT_LIST_DIR}/container.cpp
  ${CMAKE_CURRENT_LIST_DIR}/csv_import.cpp
  ${CMAKE_CURRENT_LIST_DIR}/data_file_codec.cpp
  ${CMAKE_CURRENT_LIST_DIR}/file_access.cpp
  ${CMAKE_CURRENT_LIST_DIR}/file_header.cpp
  ${CMAKE_CURRENT_LIST_DIR}/generic_data.cpp
  ${CMAKE_CURRENT_LIST_DIR}/virtual_device.cpp)
