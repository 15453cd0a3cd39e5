# The Qt platform: dialogs and the widgets of the control kinds, main windows and
# menus, drawing, images, choosers, drag and drop, messages and timers.
target_sources(vglobal_widgets_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/choosers.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/button.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/combo_box.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/edit.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/images.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/list_box.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/list_ctrl.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/registry.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/spin.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/static.cpp
  ${CMAKE_CURRENT_LIST_DIR}/controls/toolbar.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialog_view.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialog_view_build.cpp
  ${CMAKE_CURRENT_LIST_DIR}/drag_drop.cpp
  ${CMAKE_CURRENT_LIST_DIR}/main_window.cpp
  ${CMAKE_CURRENT_LIST_DIR}/menus.cpp
  ${CMAKE_CURRENT_LIST_DIR}/overlay.cpp
  ${CMAKE_CURRENT_LIST_DIR}/qt_dc.cpp
  ${CMAKE_CURRENT_LIST_DIR}/qt_dc_image.cpp
  ${CMAKE_CURRENT_LIST_DIR}/qt_platform.cpp
  ${CMAKE_CURRENT_LIST_DIR}/qt_platform_dialogs.cpp
  ${CMAKE_CURRENT_LIST_DIR}/qt_windows.cpp)
