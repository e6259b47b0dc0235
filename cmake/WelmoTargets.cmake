# What all targets of the project have in common, one function for each kind.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# Built and installed programs find what they load at the same relative path.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib/welmo")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_INSTALL_RPATH "$ORIGIN/../lib/welmo")
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME pendant)

add_compile_options(-Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual)
# In every build: a switch without a case for a new instruction or state is an error.
add_compile_options(-Werror=switch)
add_compile_definitions(QT_DEPRECATED_WARNINGS QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
# For the product's own code only: tests may use plain literals.
set(product_flags -Wshadow -DQT_NO_CAST_FROM_ASCII)
add_definitions(${product_flags})
if(WELMO_WERROR)
    add_compile_options(-Werror)
endif()
foreach(sanitizer IN LISTS WELMO_SANITIZE)
    add_compile_options(-fsanitize=${sanitizer} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${sanitizer})
endforeach()
if(WELMO_SANITIZE)
    add_compile_options(-fno-sanitize-recover=all)
endif()

# Headers that most sources include are parsed once for each kind of target: "core" without widgets,
# "widgets", "plugin" (the same with hidden names) and "tests" with QtTest. Sources still include
# what they use: `./dev lint` compiles every header without these. A short list of large headers is
# faster than <QtWidgets>, since every source reads the whole precompiled file.
set(pch_core_headers <QHash> <QJsonDocument> <QJsonObject> <QMap> <QObject> <QSet> <QStringList> <QTimer>
    <QVariant> <QVector> <algorithm> <functional> <map> <memory> <optional> <vector>)
set(pch_core_link Qt5::Core)
set(pch_widgets_headers ${pch_core_headers} <QBoxLayout> <QComboBox> <QDoubleSpinBox> <QGridLayout>
    <QLabel> <QLineEdit> <QPushButton> <QScrollArea> <QTabWidget>)
set(pch_widgets_link Qt5::Widgets)
set(pch_plugin_headers ${pch_widgets_headers})
set(pch_plugin_link Qt5::Widgets)
set(pch_strict_headers ${pch_widgets_headers})
set(pch_strict_link Qt5::Widgets)
set(pch_tests_headers <QtTest> ${pch_widgets_headers})
set(pch_tests_link Qt5::Test Qt5::Widgets Qt5::Network)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    add_compile_options(-fpch-preprocess) # for the compiler cache, which must see what is precompiled
endif()

function(welmo_precompiled name kind)
    if(NOT TARGET pch_${kind})
        file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/pch_${kind}.cpp" CONTENT "")
        add_library(pch_${kind} STATIC "${CMAKE_BINARY_DIR}/pch_${kind}.cpp")
        set_target_properties(pch_${kind} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF
            POSITION_INDEPENDENT_CODE ON)
        if(kind STREQUAL plugin)
            set_target_properties(pch_${kind} PROPERTIES
                CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
        endif()
        target_link_libraries(pch_${kind} PRIVATE ${pch_${kind}_link})
        target_precompile_headers(pch_${kind} PRIVATE ${pch_${kind}_headers})
        welmo_quick_to_compile(pch_${kind} ${kind})
    endif()
    target_precompile_headers(${name} REUSE_FROM pch_${kind})
    welmo_quick_to_compile(${name} ${kind})
endfunction()

# The development build does not optimise the tests' own code: it runs once, so that optimising
# takes longer than it saves.
function(welmo_quick_to_compile name kind)
    if(kind STREQUAL tests)
        target_compile_options(${name} PRIVATE $<$<CONFIG:RelWithDebInfo>:-O0>)
    elseif(kind STREQUAL strict)
        target_compile_options(${name} PRIVATE -O0 -g0) # it never runs
    endif()
endfunction()

# welmo_host_library(kelpCore LINK Qt5::Core): a stand-in library of the host under its real name,
# from include/, src/ and *.qrc of the calling folder.
function(welmo_host_library name)
    cmake_parse_arguments(ARG "" "PCH" "LINK" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS
        "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.h"
        "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.qrc")
    add_library(${name} SHARED ${sources})
    target_include_directories(${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}/${name}/include")
    target_link_libraries(${name} PUBLIC ${ARG_LINK})
    welmo_precompiled(${name} ${ARG_PCH})
    set_target_properties(${name} PROPERTIES INSTALL_RPATH "$ORIGIN")
    install(TARGETS ${name} LIBRARY DESTINATION lib/welmo)
    install(TARGETS ${name} LIBRARY DESTINATION lib COMPONENT sdk EXCLUDE_FROM_ALL)
    install(DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}/${name}/include/" DESTINATION include
        COMPONENT sdk EXCLUDE_FROM_ALL)
endfunction()

# welmo_static_library(controller LINK Qt5::Core): every source below the calling folder.
function(welmo_static_library name)
    cmake_parse_arguments(ARG "" "PCH" "LINK" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS
        "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/*.h"
        "${CMAKE_CURRENT_SOURCE_DIR}/*.ui" "${CMAKE_CURRENT_SOURCE_DIR}/*.qrc")
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$|/language/")
    add_library(${name} STATIC ${sources})
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_include_directories(${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}/..")
    target_link_libraries(${name} PUBLIC ${ARG_LINK})
    if(NOT ARG_PCH)
        set(ARG_PCH core)
    endif()
    welmo_precompiled(${name} ${ARG_PCH})
endfunction()

# welmo_translation(qm NAME welmo_cn.qm FROM a.ts b.ts): one compiled file with the texts of several
# rooms. A library's texts are kept beside it, and go into the file of each program that shows them.
function(welmo_translation variable)
    cmake_parse_arguments(ARG "" "NAME" "FROM" ${ARGN})
    set(qm "${CMAKE_CURRENT_BINARY_DIR}/${ARG_NAME}")
    add_custom_command(OUTPUT "${qm}" DEPENDS ${ARG_FROM} VERBATIM
        COMMAND Qt5::lrelease -silent ${ARG_FROM} -qm "${qm}")
    set(${variable} "${qm}" PARENT_SCOPE)
endfunction()

# welmo_test(tst_name LABEL unit SOURCES a.cpp LINK x): one QtTest executable, run offscreen. With
# NASTY it runs once more, as tst_name_nasty, on a host with the other habits (kelp::Habits). A
# second label "process" is for tests that start programs by QProcess: emulated runs leave them out,
# because the emulator lacks the system call behind it (clone with a file descriptor of the
# process).
function(welmo_test name)
    cmake_parse_arguments(ARG "NASTY" "TIMEOUT" "LABEL;SOURCES;LINK;ARGUMENTS" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT ${WELMO_TEST_TIMEOUT})
    endif()
    add_executable(${name} ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_link_libraries(${name} PRIVATE ${pch_tests_link} ${ARG_LINK})
    welmo_precompiled(${name} tests)
    # Often there are none, since a test includes its own .moc.
    set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/mocs_compilation.cpp"
        PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
    add_test(NAME ${name} COMMAND ${name} ${ARG_ARGUMENTS})
    set_tests_properties(${name} PROPERTIES
        LABELS "${ARG_LABEL}" TIMEOUT ${ARG_TIMEOUT}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
    if(ARG_NASTY)
        add_test(NAME ${name}_nasty COMMAND ${name} ${ARG_ARGUMENTS})
        set_tests_properties(${name}_nasty PROPERTIES
            LABELS "${ARG_LABEL}" TIMEOUT ${ARG_TIMEOUT}
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;WELMO_HOST=nasty")
    endif()
endfunction()

# welmo_script_test(tst_name LABEL ... ENVIRONMENT VARIABLE=VALUE...): a test written in Python.
function(welmo_script_test name)
    cmake_parse_arguments(ARG "" "" "LABEL;ENVIRONMENT" ${ARGN})
    add_test(NAME ${name} COMMAND /usr/bin/python3 -B "${CMAKE_CURRENT_SOURCE_DIR}/${name}.py")
    set_tests_properties(${name} PROPERTIES
        LABELS "${ARG_LABEL}" TIMEOUT ${WELMO_TEST_TIMEOUT} ENVIRONMENT "${ARG_ENVIRONMENT}")
endfunction()

# welmo_soak(tst_name VARIABLE=VALUE): a longer run of the test for ./dev soak.
function(welmo_soak name)
    add_test(NAME ${name}_soak CONFIGURATIONS Soak COMMAND ${name})
    set_tests_properties(${name}_soak PROPERTIES LABELS soak TIMEOUT 7200
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;QTEST_FUNCTION_TIMEOUT=7000000;${ARGN}")
endfunction()
