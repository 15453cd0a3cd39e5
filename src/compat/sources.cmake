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
  ${CMAKE_CURRENT_LIST_DIR}/controls_number.cpp)
# The application object and its profile store.
target_sources(vglobal_core_obj PRIVATE ${CMAKE_CURRENT_LIST_DIR}/app.cpp)
# Window geometry, the dialog's window and the control kinds, one unit per kind.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/window_geometry.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialog_window.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/registry.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/control.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/static.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/button.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/edit.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/numeric_edit.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/list_rows.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/list_box.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/combo_box.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/list_ctrl.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/toolbar.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/spin.cpp)
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
