# cpack reads this for each kind of package: the folder where its files begin. The archives of
# plug-in and pendant unpack into the same folder and work together there.

if(CPACK_GENERATOR STREQUAL "DEB")
    set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
else()
    set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY ON)
endif()
