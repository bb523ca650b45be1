# Compiles several sources of a target as one, so that what all of them include is parsed once: most of the time of a build.
#
# CMake's own unity builds name sources by absolute paths, which would come into every test by __FILE__ and so keep clones from
# sharing a compiler cache.

option(VELDRAW_BATCHES "Compile several sources at once; off, each source stands alone and has to include what it uses" ON)
set(VELDRAW_BATCH_SIZE 16 CACHE STRING "How many sources are compiled at once")

# veldraw_precompile(NAME HEADER... | REUSE_FROM TARGET): parsed once for all sources of the target. Not where each source has to include
# what it uses.
function(veldraw_precompile name)
  if(VELDRAW_BATCHES)
    if(ARGV1 STREQUAL "REUSE_FROM")
      target_precompile_headers(${name} ${ARGN})
    else()
      target_precompile_headers(${name} PRIVATE ${ARGN})
    endif()
    # Lets ccache see what a precompiled header was made of.
    target_compile_options(${name} PRIVATE -fpch-preprocess)
  endif()
endfunction()

# veldraw_compile_in_batches(NAME): all sources of the tree that have no options of their own.
function(veldraw_compile_in_batches name)
  get_target_property(sources ${name} SOURCES)
  set(batched "")
  foreach(source IN LISTS sources)
    cmake_path(ABSOLUTE_PATH source NORMALIZE OUTPUT_VARIABLE path)
    cmake_path(IS_PREFIX PROJECT_BINARY_DIR "${path}" is_generated)
    get_source_file_property(options "${source}" COMPILE_OPTIONS)
    get_source_file_property(definitions "${source}" COMPILE_DEFINITIONS)
    if(path MATCHES "\\.cpp$" AND NOT is_generated AND NOT options AND NOT definitions)
      cmake_path(RELATIVE_PATH path BASE_DIRECTORY "${PROJECT_SOURCE_DIR}")
      list(APPEND batched "${path}")
    endif()
  endforeach()
  list(LENGTH batched left)
  if(left LESS 2)
    return()
  endif()
  list(SORT batched)
  # Still scanned for moc and uic, and not compiled by themselves.
  list(TRANSFORM batched PREPEND "${PROJECT_SOURCE_DIR}/" OUTPUT_VARIABLE paths)
  set_source_files_properties(${paths} PROPERTIES HEADER_FILE_ONLY ON)

  # Of equal size, as near as can be.
  math(EXPR batches "(${left} + ${VELDRAW_BATCH_SIZE} - 1) / ${VELDRAW_BATCH_SIZE}")
  while(batches GREATER 0)
    math(EXPR size "(${left} + ${batches} - 1) / ${batches}")
    list(SUBLIST batched 0 ${size} batch)
    list(REMOVE_ITEM batched ${batch})
    list(TRANSFORM batch REPLACE "(.+)" "#include \"\\1\"")
    list(JOIN batch "\n" includes)
    # The compiler takes each source for a header, in which an anonymous namespace would be a mistake.
    set(file "${CMAKE_CURRENT_BINARY_DIR}/${name}_batches/${batches}.cpp")
    file(CONFIGURE OUTPUT "${file}" CONTENT "#pragma GCC diagnostic ignored \"-Wsubobject-linkage\"\n${includes}\n" @ONLY)
    set_source_files_properties("${file}" PROPERTIES SKIP_AUTOGEN ON)
    target_sources(${name} PRIVATE "${file}")
    math(EXPR left "${left} - ${size}")
    math(EXPR batches "${batches} - 1")
  endwhile()
endfunction()
