# Sources of this subsystem; each file here adds its own units.
target_sources(vglobal_widgets_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/qt_platform.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialog_view.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialog_view_build.cpp)
target_sources(vglobal_widgets_obj PRIVATE ${CMAKE_CURRENT_LIST_DIR}/qt_dc.cpp)
# Images, choosers, drag and drop.
target_sources(vglobal_widgets_obj PRIVATE ${CMAKE_CURRENT_LIST_DIR}/qt_dc_image.cpp)
target_sources(vglobal_widgets_obj PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/choosers.cpp
  ${CMAKE_CURRENT_LIST_DIR}/drag_drop.cpp)
