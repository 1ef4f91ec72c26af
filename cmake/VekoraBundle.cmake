# vekora_add_bundle(NAME SOURCES file... [RESOURCES file...] [OUTPUT_DIRECTORY folder])
#
# Adds a target NAME that builds the folder NAME.bundle in OUTPUT_DIRECTORY (by default the current binary folder): the
# module, named NAME as Info.plist has to say under CFBundleExecutable, and beside it the resources, which keep the
# folders that they lie in when those end in ".lproj". A resource that changes is copied by the next build.
# The target's property VEKORA_BUNDLE is the bundle's folder.
function(vekora_add_bundle name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "OUTPUT_DIRECTORY" "SOURCES;RESOURCES")
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "vekora_add_bundle(${name}): what is ${arg_UNPARSED_ARGUMENTS}?")
    endif()
    if(NOT arg_SOURCES)
        message(FATAL_ERROR "vekora_add_bundle(${name}): there are no SOURCES.")
    endif()
    if(NOT arg_OUTPUT_DIRECTORY)
        set(arg_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
    endif()
    set(bundle ${arg_OUTPUT_DIRECTORY}/${name}.bundle)

    add_library(${name} MODULE ${arg_SOURCES})
    set_target_properties(${name} PROPERTIES
        LIBRARY_OUTPUT_DIRECTORY ${bundle}
        PREFIX ""
        SUFFIX ""
        VEKORA_BUNDLE ${bundle}
    )
    target_link_libraries(${name} PRIVATE Vekora::platform)
    # Variables that are unique in the process would keep the module from ever being unloaded.
    target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
    if(NOT VEKORA_SANITIZE)
        # A name that nothing defines is found here rather than when the bundle is loaded.
        target_link_options(${name} PRIVATE -Wl,-z,defs)
    endif()

    set(gathered)
    foreach(resource IN LISTS arg_RESOURCES)
        get_filename_component(source ${resource} ABSOLUTE)
        get_filename_component(file ${source} NAME)
        get_filename_component(folder ${source} DIRECTORY)
        get_filename_component(language ${folder} NAME)
        if(language MATCHES "\\.lproj$")
            set(file ${language}/${file})
        endif()
        add_custom_command(OUTPUT ${bundle}/${file}
            COMMAND ${CMAKE_COMMAND} -E copy ${source} ${bundle}/${file}
            DEPENDS ${source}
            VERBATIM)
        list(APPEND gathered ${bundle}/${file})
    endforeach()
    if(gathered)
        add_custom_target(${name}_resources ALL DEPENDS ${gathered})
        add_dependencies(${name} ${name}_resources)
    endif()
endfunction()
