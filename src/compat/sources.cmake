# The compat vocabulary: strings, formats, resources, windows, dialogs and their
# control kinds, menus, messages, drawing, images, drag and drop, the application.
target_sources(vglobal_core_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/app.cpp
  ${CMAKE_CURRENT_LIST_DIR}/client_dc.cpp
  ${CMAKE_CURRENT_LIST_DIR}/cmd_ui.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/button.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/combo_box.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/control.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/edit.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/list_box.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/list_ctrl.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/list_rows.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/numeric_edit.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/registry.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/spin.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/static.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/toolbar.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls_number.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialog.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialog_ddx.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialog_driver.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialog_window.cpp
  ${CMAKE_CURRENT_LIST_DIR}/file_dialog.cpp
  ${CMAKE_CURRENT_LIST_DIR}/filestatus.cpp
  ${CMAKE_CURRENT_LIST_DIR}/frame_wnd.cpp
  ${CMAKE_CURRENT_LIST_DIR}/global_memory.cpp
  ${CMAKE_CURRENT_LIST_DIR}/image_list.cpp
  ${CMAKE_CURRENT_LIST_DIR}/menu_resources.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ole.cpp
  ${CMAKE_CURRENT_LIST_DIR}/pixel_surface.cpp
  ${CMAKE_CURRENT_LIST_DIR}/png_header.cpp
  ${CMAKE_CURRENT_LIST_DIR}/variant.cpp
  ${CMAKE_CURRENT_LIST_DIR}/window.cpp
  ${CMAKE_CURRENT_LIST_DIR}/window_dc.cpp
  ${CMAKE_CURRENT_LIST_DIR}/window_document.cpp
  ${CMAKE_CURRENT_LIST_DIR}/window_gdi.cpp
  ${CMAKE_CURRENT_LIST_DIR}/window_geometry.cpp
  ${CMAKE_CURRENT_LIST_DIR}/window_menu.cpp
  ${CMAKE_CURRENT_LIST_DIR}/window_messages.cpp
  ${CMAKE_CURRENT_LIST_DIR}/window_timers.cpp)
# Strings, formats and resources: beneath the readers of untrusted bytes.
target_sources(vglobal_readers_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/cstring.cpp
  ${CMAKE_CURRENT_LIST_DIR}/format.cpp
  ${CMAKE_CURRENT_LIST_DIR}/format_directive.cpp
  ${CMAKE_CURRENT_LIST_DIR}/resources.cpp
  ${CMAKE_CURRENT_LIST_DIR}/unicode.cpp)
