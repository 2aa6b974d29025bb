# The manual page and the Debian package. `cpack -G DEB` in the build folder (or
# `make package`) makes eowizard_<version>_amd64.deb from everything that install() rules
# install, so whatever is installed later (another module, more data) joins the package
# by itself. Its dependencies are worked out by dpkg-shlibdeps from the programs and
# libraries it holds.
find_program(HELP2MAN help2man REQUIRED)
find_program(GZIP gzip REQUIRED)
set(EOWIZARD_MAINTAINER "eowizard maintainers <maintainers@users.noreply.c-seed-8e89b9c0.example>"
  CACHE STRING "Maintainer named in the Debian package")

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
# The change log's newest entry names the package's version.
file(STRINGS ${packaging}/changelog newest LIMIT_COUNT 1)
if(NOT newest MATCHES "^eowizard \\(${PROJECT_VERSION}\\) ")
  message(FATAL_ERROR "packaging/changelog: the newest entry is not version ${PROJECT_VERSION}")
endif()

# The manual page, from the program's --help and --version and the sections written in
# eowizard.h2m; manual pages and a native package's change log are kept compressed.
set(man_page ${PROJECT_BINARY_DIR}/eowizard.1)
add_custom_command(OUTPUT ${man_page}.gz
  COMMAND ${HELP2MAN} --no-info --name "exploring-object project wizard for Bravant"
          --include ${packaging}/eowizard.h2m --output ${man_page} $<TARGET_FILE:eowizard>
  COMMAND ${GZIP} -9nf ${man_page}
  DEPENDS eowizard ${packaging}/eowizard.h2m
  COMMENT "Writing the manual page eowizard.1"
  VERBATIM)
add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/changelog.gz
  COMMAND ${CMAKE_COMMAND} -E copy ${packaging}/changelog ${PROJECT_BINARY_DIR}/changelog
  COMMAND ${GZIP} -9nf ${PROJECT_BINARY_DIR}/changelog
  DEPENDS ${packaging}/changelog
  VERBATIM)
add_custom_target(eow_package_docs ALL DEPENDS ${man_page}.gz ${PROJECT_BINARY_DIR}/changelog.gz)

install(FILES ${man_page}.gz DESTINATION share/man/man1)
install(FILES ${packaging}/copyright ${PROJECT_BINARY_DIR}/changelog.gz
  DESTINATION share/doc/eowizard)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/ DESTINATION share/doc/eowizard/examples)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME eowizard)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT ${EOWIZARD_MAINTAINER})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "wizard that makes field-analysis models explorable by Bravant")
# The summary is the description's first line.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Page by page the wizard asks for everything that distinguishes one
exploring object of a parametric field-analysis model: project, problem,
basic model, data and sketch files, input and output parameters. It keeps
them in a session file and generates a Visual Basic ActiveX library
project that implements the host's interfaces and drives the Zentrix
analysis application. Session files can be shown, checked and generated
from the command line too.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
include(CPack)
