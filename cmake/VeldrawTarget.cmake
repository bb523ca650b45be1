# What every target of ours has in common: warnings, sanitizers, coverage, how Qt and Boost are to be used, compiling in batches.
include(VeldrawBatches)

option(VELDRAW_COVERAGE "Count the lines of the dialog library that tests reach" OFF)

# veldraw_target(NAME): call once for each library or program of ours.
function(veldraw_target name)
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_compile_definitions(${name} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                                             BOOST_BIND_NO_PLACEHOLDERS BOOST_ALLOW_DEPRECATED_HEADERS)
  target_compile_options(${name} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
  if(VELDRAW_WARNINGS_AS_ERRORS)
    target_compile_options(${name} PRIVATE -Werror)
  endif()
  if(VELDRAW_SANITIZE)
    # With sanitizers g++ 12 takes members of Boost's function objects for uninitialized.
    target_compile_options(${name} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=undefined -Wno-maybe-uninitialized)
    target_link_options(${name} PRIVATE -fsanitize=address,undefined)
  endif()
  if(VELDRAW_SANITIZE_THREADS)
    target_compile_options(${name} PRIVATE -fsanitize=thread -Wno-maybe-uninitialized -Wno-tsan)
    target_link_options(${name} PRIVATE -fsanitize=thread)
  endif()
  if(VELDRAW_COVERAGE)
    # Counters of the dialog library only; programs and libraries that link it need the runtime that writes them.
    if(name STREQUAL "vdsdkdialogs_objects")
      target_compile_options(${name} PRIVATE --coverage)
      target_link_options(${name} INTERFACE --coverage)
    endif()
  endif()
  if(VELDRAW_BATCHES)
    # At the end of the folder: by then all is known of the sources.
    cmake_language(EVAL CODE "cmake_language(DEFER CALL veldraw_compile_in_batches [[${name}]])")
  endif()
endfunction()

# veldraw_use_moc(NAME): switches on moc and uic. Qt, VTK and Boost come as imported targets, so as system headers.
function(veldraw_use_moc name)
  set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON)
endfunction()
