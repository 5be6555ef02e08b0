# kvx_shared(name AS Forms PARTS kvx_basic ... [LINKS korvex_forms ...] [PRIVATE_LINKS ...])
# One shared library that hosts link, made of the objects of static parts, so that nothing is compiled twice and no part
# (and with it no global state) is in two libraries. Installed as KorvexForms::<AS>. Parts that do not exist are left out.
include(CMakePackageConfigHelpers)

set(KVX_PACKAGE_FOLDER "${CMAKE_INSTALL_LIBDIR}/cmake/KorvexForms")

function(kvx_shared name)
    cmake_parse_arguments(arg "" "AS" "PARTS;LINKS;PRIVATE_LINKS" ${ARGN})
    set(objects "")
    foreach(part IN LISTS arg_PARTS)
        if(TARGET ${part})
            list(APPEND objects "$<TARGET_OBJECTS:${part}>")
        endif()
    endforeach()
    if(NOT objects)
        return()
    endif()
    add_library(${name} SHARED ${objects})
    add_library(KorvexForms::${arg_AS} ALIAS ${name})
    target_include_directories(${name} INTERFACE
        "$<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/src>" "$<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}>"
        "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/korvex>")
    target_compile_features(${name} INTERFACE cxx_std_20)
    target_link_libraries(${name} PUBLIC ${arg_LINKS} PRIVATE ${arg_PRIVATE_LINKS})
    if(NOT KVX_SANITIZE)
        target_link_options(${name} PRIVATE -Wl,--no-undefined)
    endif()
    set_target_properties(${name} PROPERTIES
        LINKER_LANGUAGE CXX
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        EXPORT_NAME ${arg_AS}
        INSTALL_RPATH "$ORIGIN")
    install(TARGETS ${name} EXPORT KorvexForms${arg_AS}
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Library NAMELINK_COMPONENT Library)
    install(EXPORT KorvexForms${arg_AS} NAMESPACE KorvexForms:: FILE KorvexForms${arg_AS}.cmake
        DESTINATION "${KVX_PACKAGE_FOLDER}" COMPONENT Library)
endfunction()

# kvx_install_headers(folder a.h b.h ...)   without names: every header of the folder and of those in it
function(kvx_install_headers folder)
    set(target "${CMAKE_INSTALL_INCLUDEDIR}/korvex")
    if(ARGN)
        foreach(header IN LISTS ARGN)
            if(EXISTS "${CMAKE_SOURCE_DIR}/${folder}/${header}")
                install(FILES "${CMAKE_SOURCE_DIR}/${folder}/${header}" DESTINATION "${target}/${folder}"
                    COMPONENT Library)
            endif()
        endforeach()
    else()
        install(DIRECTORY "${CMAKE_SOURCE_DIR}/${folder}/" DESTINATION "${target}" COMPONENT Library
            FILES_MATCHING PATTERN "*.h")
    endif()
endfunction()

function(kvx_install_config)
    configure_package_config_file("${CMAKE_SOURCE_DIR}/cmake/KorvexFormsConfig.cmake.in"
        "${CMAKE_BINARY_DIR}/KorvexFormsConfig.cmake" INSTALL_DESTINATION "${KVX_PACKAGE_FOLDER}"
        NO_SET_AND_CHECK_MACRO)
    write_basic_package_version_file("${CMAKE_BINARY_DIR}/KorvexFormsConfigVersion.cmake"
        COMPATIBILITY SameMajorVersion)
    install(FILES "${CMAKE_BINARY_DIR}/KorvexFormsConfig.cmake" "${CMAKE_BINARY_DIR}/KorvexFormsConfigVersion.cmake"
        DESTINATION "${KVX_PACKAGE_FOLDER}" COMPONENT Library)
endfunction()
