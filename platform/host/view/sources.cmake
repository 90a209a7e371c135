# The drawing in windows, and what a process has one of: parts of hostcore.dll.
set(host_view_sources
    drawing_frame.cpp
    drawing_overlay.cpp
    drawing_pane.cpp
    png_file.cpp
    text_drawer.cpp
    window_class.cpp)
