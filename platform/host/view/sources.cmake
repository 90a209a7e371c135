# The drawing in windows, and what a process has one of: parts of hostcore.dll.
set(host_view_sources
    drawing_frame.cpp
    drawing_pane.cpp
    drawing_picture.cpp
    frame_bitmap.cpp
    pointer_guide.cpp
    pointer_shape.cpp
    text_drawer.cpp
    vector_overlay.cpp
    window_picture.cpp)
