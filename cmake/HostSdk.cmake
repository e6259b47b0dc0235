# The host's four libraries from a vendor's SDK: headers under include/, libraries under lib/.

# Each file is checked, since a path that is wrong by one folder looks right.
foreach(file lib/libkelpCore.so lib/libkelpPando.so lib/libkelpvu.so lib/libtessa.so
        include/kelp/moduleobject.h include/pando/bmodule.h include/vu/xtheme.h
        include/tessa/managerhelper.h)
    if(NOT EXISTS "${WELMO_HOST_SDK}/${file}")
        message(FATAL_ERROR "WELMO_HOST_SDK: ${WELMO_HOST_SDK}/${file} is expected and is not there; \
docs/porting.md says how an SDK is laid out")
    endif()
endforeach()
foreach(library kelpCore kelpPando kelpvu tessa)
    find_library(WELMO_SDK_${library} ${library} REQUIRED
        PATHS "${WELMO_HOST_SDK}/lib" NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    add_library(${library} SHARED IMPORTED GLOBAL)
    set_target_properties(${library} PROPERTIES
        IMPORTED_LOCATION "${WELMO_SDK_${library}}"
        INTERFACE_INCLUDE_DIRECTORIES "${WELMO_HOST_SDK}/include")
endforeach()
target_link_libraries(kelpCore INTERFACE Qt5::Core)
target_link_libraries(kelpPando INTERFACE kelpCore Qt5::Widgets)
target_link_libraries(kelpvu INTERFACE kelpPando)
target_link_libraries(tessa INTERFACE kelpvu)
