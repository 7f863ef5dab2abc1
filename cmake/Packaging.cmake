# Debian packages: `cpack -G DEB` in a build folder makes libvesk0 (the shared
# library) and libvesk-dev (headers, link name, CMake package, vesk.pc).
# The runtime package's dependencies on the Xerces-C and ICU libraries come
# from dpkg-shlibdeps, so they name the versions the library was linked with.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vesk)
set(CPACK_PACKAGE_VENDOR "VESK developers")
set(CPACK_PACKAGE_CONTACT "VESK developers <vesk-dev@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
  "general-purpose C++ class library: objects, strings, streams, XML, threads, sockets")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime dev)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libvesk${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libvesk-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
# The headers include only standard and library headers, so a client of the
# shared library needs nothing but the runtime package of the same version.
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS
  "libvesk${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")

include(CPack)
