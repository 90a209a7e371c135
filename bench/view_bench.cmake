if(WIN32)
    add_executable(view_bench view_bench.cpp)
    target_link_libraries(view_bench PRIVATE hostcore gdi32)
endif()
