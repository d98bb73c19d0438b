# The tests that cannot hold on Windows: program, test, and why. There they are counted as skipped, by their names.

set(no_links "the MinGW runtime cannot make links")
set(not_on_windows
    "i18n/message_catalogs_internal|load_directory.does_not_follow_a_link_back_to_where_it_is|${no_links}"
    "i18n/message_catalogs_internal|load_directory.passes_by_what_is_neither_file_nor_directory|${no_links}"
    "i18n/message_catalogs_internal|load_directory.takes_no_file_whose_name_ends_in_a_dot|the system drops that dot"
    "serialization/serialize_buffer_internal|serialize_text_allocation.a_real_that_the_locale_has_no_memory_for_is_not_written_in_part|the standard library's DLL allocates by itself")

# skip_on_windows(NAME RESULT): sets RESULT to the option that leaves these tests out of the program.
function(skip_on_windows name result)
    set(left_out)
    foreach(row IN LISTS not_on_windows)
        string(REPLACE "|" ";" row "${row}")
        list(GET row 0 program)
        if(program STREQUAL name)
            list(GET row 1 test)
            list(GET row 2 reason)
            list(APPEND left_out ${test})
            set(skipped ${VELDRIN_TEST_PREFIX}${name}/${test})
            add_test(NAME ${skipped} COMMAND ${CMAKE_COMMAND} -E echo "skipped: ${reason}")
            set_tests_properties(${skipped} PROPERTIES SKIP_REGULAR_EXPRESSION "^skipped: ")
        endif()
    endforeach()
    list(JOIN left_out ":" left_out)
    if(left_out)
        set(${result} --gtest_filter=-${left_out} PARENT_SCOPE)
    endif()
endfunction()
