# cmake -DBUILD=... -DWORK=... -DCONSUMER=... -P package_test.cmake: fails when a step fails or the host prints anything
# but what it should.
function(step)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${command}\nended with ${status}:\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE "${WORK}")
step("${CMAKE_COMMAND}" --install "${BUILD}" --component Library --prefix "${WORK}/prefix")

set(flags "")
if(SANITIZE)
    set(flags "-fsanitize=address,undefined")
endif()
step("${CMAKE_COMMAND}" -S "${CONSUMER}" -B "${WORK}/build" -G "${GENERATOR}" "-DCMAKE_PREFIX_PATH=${WORK}/prefix"
    "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}" "-DCMAKE_CXX_FLAGS=${flags}"
    "-DCMAKE_BUILD_TYPE=${BUILD_TYPE}")
step("${CMAKE_COMMAND}" --build "${WORK}/build")
step("${WORK}/build/small_host" "${WORK}/forest.db")
if(NOT output STREQUAL "Korvex Forms 2.0: stand 1, picked Nord/ 3\n")
    message(FATAL_ERROR "the small host printed: ${output}")
endif()

file(GLOB library "${WORK}/prefix/lib*/libkorvex_forms.so.2.0" "${WORK}/prefix/lib*/*/libkorvex_forms.so.2.0")
if(NOT library)
    message(FATAL_ERROR "no libkorvex_forms.so.2.0 below ${WORK}/prefix")
endif()
file(REMOVE_RECURSE "${WORK}")
