# Reordering beside FriBidi and ICU; left out where one of them is missing.
find_path(FRIBIDI_INCLUDE fribidi/fribidi.h)
find_library(FRIBIDI_LIBRARY fribidi)
find_library(ICU_LIBRARY icuuc)
if(NOT WIN32 AND TARGET bidi_core AND FRIBIDI_INCLUDE AND FRIBIDI_LIBRARY AND ICU_LIBRARY)
    add_executable(bidi_bench bidi_bench.cpp)
    target_link_libraries(bidi_bench PRIVATE bidi_core ${FRIBIDI_LIBRARY} ${ICU_LIBRARY})
endif()
