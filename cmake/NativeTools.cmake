# In a cross build, programs that run during the build are this machine's own. Qt's packages keep
# targets that already exist.

foreach(tool qmake moc uic rcc)
    find_program(WELMO_NATIVE_${tool} ${tool} REQUIRED
        PATHS /usr/lib/qt5/bin NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    add_executable(Qt5::${tool} IMPORTED GLOBAL)
    set_target_properties(Qt5::${tool} PROPERTIES IMPORTED_LOCATION "${WELMO_NATIVE_${tool}}")
endforeach()
find_package(Qt5LinguistTools 5.15 REQUIRED
    PATHS "/usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/cmake"
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
