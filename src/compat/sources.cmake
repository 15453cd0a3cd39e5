# Sources of this subsystem; each file here adds its own units.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/unicode.cpp
  ${CMAKE_CURRENT_LIST_DIR}/format.cpp
  ${CMAKE_CURRENT_LIST_DIR}/cstring.cpp
  ${CMAKE_CURRENT_LIST_DIR}/variant.cpp
  ${CMAKE_CURRENT_LIST_DIR}/filestatus.cpp
  ${CMAKE_CURRENT_LIST_DIR}/resources.cpp)
# Window vocabulary, dialogs and their controls.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/window.cpp
  ${CMAKE_CURRENT_LIST_DIR}/window_dc.cpp
  ${CMAKE_CURRENT_LIST_DIR}/window_menu.cpp
  ${CMAKE_CURRENT_LIST_DIR}/window_document.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialog.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialog_ddx.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialog_driver.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls_edit.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls_list.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls_listctrl.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls_number.cpp)
# The application object and its profile store.
target_sources(vglobal_core_obj PRIVATE ${CMAKE_CURRENT_LIST_DIR}/app.cpp)
# Bitmaps and image lists (sizes from the PNG header; pixels stay with the platform).
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/png_header.cpp
  ${CMAKE_CURRENT_LIST_DIR}/image_list.cpp)
# Choosers and drag and drop of the legacy API.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/file_dialog.cpp
  ${CMAKE_CURRENT_LIST_DIR}/global_memory.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ole.cpp)
# Messages, commands, timers, menus on screen and drawing on a window.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/window_messages.cpp
  ${CMAKE_CURRENT_LIST_DIR}/window_timers.cpp
  ${CMAKE_CURRENT_LIST_DIR}/cmd_ui.cpp
  ${CMAKE_CURRENT_LIST_DIR}/menu_resources.cpp
  ${CMAKE_CURRENT_LIST_DIR}/frame_wnd.cpp
  ${CMAKE_CURRENT_LIST_DIR}/window_gdi.cpp
  ${CMAKE_CURRENT_LIST_DIR}/pixel_surface.cpp
  ${CMAKE_CURRENT_LIST_DIR}/client_dc.cpp)
