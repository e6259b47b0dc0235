# The packages: the plug-in, for a host with its own four libraries; the weld book, for the same
# hosts; the pendant with the stand-in libraries, the tools and the examples; and the recorder of a
# plant. Each is a Debian package and an archive.

set(CPACK_GENERATOR DEB TGZ)
set(CPACK_COMPONENTS_ALL plugin weldbook pendant plant)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_VENDOR "welmo")
set(CPACK_PACKAGE_CONTACT "The welmo maintainers <maintainers@welmo.example>")
set(CPACK_PROJECT_CONFIG_FILE "${CMAKE_CURRENT_LIST_DIR}/PackageRoot.cmake")

set(architecture "${CMAKE_SYSTEM_PROCESSOR}")
string(REPLACE "x86_64" "amd64" architecture "${architecture}")
string(REPLACE "aarch64" "arm64" architecture "${architecture}")
set(CPACK_PACKAGE_FILE_NAME "welmo-${PROJECT_VERSION}-${architecture}")
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE "${architecture}")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
foreach(component PLUGIN WELDBOOK PENDANT PLANT)
    string(TOLOWER "welmo-${component}" package)
    set(CPACK_DEBIAN_${component}_PACKAGE_NAME ${package})
    set(CPACK_ARCHIVE_${component}_FILE_NAME "${package}-${PROJECT_VERSION}-${architecture}")
endforeach()

# Named by hand, since dpkg-shlibdeps does not know the sysroot's packages; installing into a clean
# root shows if one is missing.
set(runtime "libc6 (>= 2.36), libgcc-s1, libstdc++6 (>= 12), libqt5core5a (>= 5.15.8)")
set(widgets "libqt5gui5 (>= 5.15.8) | libqt5gui5-gles (>= 5.15.8), libqt5widgets5 (>= 5.15.8)")
set(CPACK_DEBIAN_PLUGIN_PACKAGE_DEPENDS "${runtime}, ${widgets}")
set(CPACK_DEBIAN_WELDBOOK_PACKAGE_DEPENDS
    "${runtime}, ${widgets}, libqt5sql5 (>= 5.15.8), libqt5sql5-sqlite, libqwt-qt5-6, fonts-dejavu-core")
set(CPACK_DEBIAN_PENDANT_PACKAGE_DEPENDS
    "${runtime}, ${widgets}, libqt5x11extras5 (>= 5.15.2), libxcb1, libxcb-xkb1, libsqlite3-0, libqt5sql5 (>= 5.15.8), libqt5sql5-sqlite"
    "libmosquitto1 (>= 2.0.11), libssl3, fonts-dejavu-core"
    "welmo-plugin (= ${PROJECT_VERSION})")
list(JOIN CPACK_DEBIAN_PENDANT_PACKAGE_DEPENDS ", " CPACK_DEBIAN_PENDANT_PACKAGE_DEPENDS)
set(CPACK_DEBIAN_PLANT_PACKAGE_DEPENDS
    "${runtime}, libqt5sql5 (>= 5.15.8), libqt5sql5-sqlite, libmosquitto1 (>= 2.0.11), libssl3"
    "libcpp-httplib0.11, libjs-chart.js")
list(JOIN CPACK_DEBIAN_PLANT_PACKAGE_DEPENDS ", " CPACK_DEBIAN_PLANT_PACKAGE_DEPENDS)
set(CPACK_DEBIAN_PLANT_PACKAGE_RECOMMENDS "libqt5sql5-psql, ca-certificates")
set(CPACK_DEBIAN_PLANT_PACKAGE_SUGGESTS "mosquitto, mosquitto-clients, postgresql")
set(CPACK_DEBIAN_PENDANT_PACKAGE_RECOMMENDS "welmo-weldbook, fonts-wqy-microhei, qtwayland5")
set(CPACK_DEBIAN_PENDANT_PACKAGE_SUGGESTS "mosquitto, mosquitto-clients")

set(CPACK_DEBIAN_PLUGIN_DESCRIPTION "arc-welding package for a robot teach pendant
A plug-in library with pages, a monitor, handle keys and welding instructions.
It is loaded by a host that brings the libraries kelpCore, kelpPando, kelpvu and
tessa; the package welmo-pendant is one.")
set(CPACK_DEBIAN_WELDBOOK_DESCRIPTION "record of every weld for a robot teach pendant
A second plug-in library for the same hosts: a record of every seam with its
course, limits and a verdict, in a file that survives a power cut; and the
program weldbook, which lists, exports and reports what was welded.")
set(CPACK_DEBIAN_PENDANT_DESCRIPTION "desktop pendant and tools for the arc-welding package
A robot teach pendant for the desktop with a virtual controller and a simulated
welder, the same controller as a service (controllerd) behind an MQTT broker, the checker tlcheck for welding programs, and example programs.")
set(CPACK_DEBIAN_PLANT_DESCRIPTION "recorder of a plant's welding cells
Takes the seams, alarms, changes and states of all cells of a plant from their
MQTT brokers into one database, and shows the plant in a browser.")

include(CPack)

# cpack packs what is built; this target builds it.
add_custom_target(shipped DEPENDS welmo weldbook weldbook-cli welmo-pendant tlcheck controllerd recorder)
