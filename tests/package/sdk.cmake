# Installs the stand-in host as an SDK; builds the plug-in, and the tests that hold a host to the
# contract, against it from a copy without host/.

function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE "${FOLDER}")
run(${CMAKE_COMMAND} --install "${BUILD}" --component sdk --prefix "${FOLDER}/host")
file(COPY "${SOURCE}/CMakeLists.txt" "${SOURCE}/cmake" "${SOURCE}/src" "${SOURCE}/resources"
    "${SOURCE}/schema" "${SOURCE}/tl" "${SOURCE}/book"
    DESTINATION "${FOLDER}/welmo")
file(COPY "${SOURCE}/tests/host" "${SOURCE}/tests/support" DESTINATION "${FOLDER}/welmo/tests")
# Unoptimised: what is asked is whether it builds and loads.
run(${CMAKE_COMMAND} -S "${FOLDER}/welmo" -B "${FOLDER}/build" -G Ninja
    -D CMAKE_BUILD_TYPE=Debug -D CMAKE_CXX_COMPILER=${COMPILER}
    -D CMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER} -D WELMO_HOST_SDK=${FOLDER}/host
    -D WELMO_CONTRACT_TESTS=ON)
run(${CMAKE_COMMAND} --build "${FOLDER}/build")
run(${CMAKE_CTEST_COMMAND} --test-dir "${FOLDER}/build" --output-on-failure -L contract)
