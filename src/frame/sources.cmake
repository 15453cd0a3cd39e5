# The library frame: attach and detach, the window-class registry, the library's
# resources and bitmaps, the help launcher and the under-construction dialog.
#
# The library's bitmap resources are the PNG strips of resources/images compiled in
# (ids as listed in resources/images/README.md).
set(vglobal_library_bitmaps
  5812=${PROJECT_SOURCE_DIR}/resources/images/command_images_16x15.png
  5813=${PROJECT_SOURCE_DIR}/resources/images/command_images_24x24.png
  5814=${PROJECT_SOURCE_DIR}/resources/images/demo_toolbar_16x15.png
  5815=${PROJECT_SOURCE_DIR}/resources/images/demo_toolbar_24x24.png)
set(vglobal_library_bitmap_files ${vglobal_library_bitmaps})
list(TRANSFORM vglobal_library_bitmap_files REPLACE "^[0-9]+=" "")
add_custom_command(
  OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/library_bitmaps.cpp
  COMMAND ${CMAKE_COMMAND} -DOUTPUT=${CMAKE_CURRENT_BINARY_DIR}/library_bitmaps.cpp
    -DTABLE=kLibraryBitmaps "-DENTRIES=${vglobal_library_bitmaps}"
    -P ${PROJECT_SOURCE_DIR}/cmake/embed_bitmaps.cmake
  DEPENDS ${vglobal_library_bitmap_files} ${PROJECT_SOURCE_DIR}/cmake/embed_bitmaps.cmake
  COMMENT "Embedding the library's image strips"
  VERBATIM)

target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/help.cpp
  ${CMAKE_CURRENT_LIST_DIR}/library_resources.cpp
  ${CMAKE_CURRENT_LIST_DIR}/module.cpp
  ${CMAKE_CURRENT_LIST_DIR}/under_construction.cpp
  ${CMAKE_CURRENT_LIST_DIR}/under_construction_template.cpp
  ${CMAKE_CURRENT_LIST_DIR}/window_class.cpp
  ${CMAKE_CURRENT_BINARY_DIR}/library_bitmaps.cpp)
