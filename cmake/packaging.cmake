# Debian packages of the library, made with `cpack -G DEB` in a configured build tree
# (the release preset installs below /usr, where the packages put their files):
#
#   arvenis-vglobal      component "runtime": the shared libraries, the programs, the
#                        help files; its library dependencies come from dpkg-shlibdeps.
#   arvenis-vglobal-dev  component "development": headers, the CMake package, the
#                        pkg-config file and the unversioned .so links; depends on the
#                        runtime package of exactly the same version.
#
# The development package only recommends the Qt development files: vglobal::widgets
# needs them, vglobal::core does not, and a headless build machine installs the
# package with --no-install-recommends.

set(VGLOBAL_PACKAGE_MAINTAINER "Ostrel Arvenis developers <arvenis-dev@ostrel.invalid>"
    CACHE STRING "Maintainer named in the Debian packages")
set(VGLOBAL_PACKAGE_RELEASE "1" CACHE STRING "Debian revision of the packages")

set(CPACK_PACKAGE_NAME "arvenis-vglobal")
set(CPACK_PACKAGE_VENDOR "Ostrel")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
# Empty, so that CPack does not put the project's one summary above both packages'
# descriptions: the first line of each description below is its package's synopsis.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
# The packages put their files where the tree was configured to install them, so
# the folders built into the library (the help folder) are the packaged ones.
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_COMPONENTS_ALL runtime development)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE "${VGLOBAL_PACKAGE_RELEASE}")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${VGLOBAL_PACKAGE_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(vglobal_deb_version "${PROJECT_VERSION}-${VGLOBAL_PACKAGE_RELEASE}")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "arvenis-vglobal")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
# A shlibs file lets packages built against these libraries depend on this version
# or a later one (dpkg-shlibdeps of the suite's applications reads it).
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
    "Arvenis shared user-interface and utility library and tools
The settings store, method defaults, messages, file checks, text and path
utilities of the Arvenis chromatography and mass-spectrometry applications
(libvglobal_core), their Qt 6 windowing layer (libvglobal_widgets), the
arvenis-settings administration tool and the help files.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME "arvenis-vglobal-dev")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "arvenis-vglobal (= ${vglobal_deb_version})")
if(VGLOBAL_BUILD_WIDGETS)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_RECOMMENDS "qt6-base-dev")
endif()
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
    "Arvenis shared user-interface and utility library - development files
Headers, the CMake package (find_package(vglobal), targets vglobal::core and
vglobal::widgets) and the pkg-config file of the Arvenis suite's shared library.
vglobal::core needs no Qt development files; vglobal::widgets needs qt6-base-dev.")

include(CPack)
