if(WIN32)
    add_executable(template_bench template_bench.cpp ${PROJECT_SOURCE_DIR}/tests/pricelist/open_template.cpp
        ${PROJECT_SOURCE_DIR}/module/resources/corvanes.rc)
    target_link_libraries(template_bench PRIVATE pricelist bom)
    target_include_directories(template_bench PRIVATE ${PROJECT_SOURCE_DIR}/module/resources)
endif()
