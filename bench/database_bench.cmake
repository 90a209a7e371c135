add_executable(database_bench database_bench.cpp)
target_link_libraries(database_bench PRIVATE $<IF:$<TARGET_EXISTS:hostcore>,hostcore,host_database>)
