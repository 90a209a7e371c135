if(WIN32)
    add_executable(grid_bench grid_bench.cpp)
    target_link_libraries(grid_bench PRIVATE grid corvanes_options)
endif()
