# Installation and the Debian package. The package is meant to be built from a
# Release build (README, "Installing"); CPack strips the program either way.
set(ZRT_MAINTAINER "ZRT maintainers <maintainers@users.noreply.c-seed-a57f6d85.example>")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zrt)
set(CPACK_PACKAGE_CONTACT "${ZRT_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "maintenance of the SQL Server databases of Quorvex companies")
set(CPACK_PACKAGE_DESCRIPTION "ZRT brings one of the accounting application's SQL Server databases (one per
company and account year, named Quorvex...) to the schema the application
expects: tables and columns, built-in rows, the 62 report views and the
standard chart of accounts. Every statement is safe to repeat, so it is run
on every database after every upgrade of the application.

The window takes a connection mode, a server and a database. Without a
display, the commands script, list, run and check write the statements,
list the databases of a server, run the maintenance on one or every
database with a report, and compare a database with what a run leaves.
SQL Server is reached through unixODBC and the FreeTDS driver.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION database)
set(CPACK_STRIP_FILES ON)
# The libraries it links, found by dpkg-shlibdeps, and what it loads at run
# time: the ODBC driver manager and driver, and Qt's platform plugins.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "unixodbc, tdsodbc, qt6-qpa-plugins")

install(FILES ${CMAKE_SOURCE_DIR}/resources/zrt.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_SOURCE_DIR}/resources/zrt.png DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/64x64/apps)
install(FILES ${CMAKE_SOURCE_DIR}/resources/zrt.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

# The manual page and the bash completion, both read from the built program's
# own help so that they follow its commands and options.
find_program(HELP2MAN help2man REQUIRED)
set(ZRT_DOCS_DIR ${CMAKE_BINARY_DIR}/docs)
file(MAKE_DIRECTORY ${ZRT_DOCS_DIR})

add_custom_command(OUTPUT ${ZRT_DOCS_DIR}/zrt.1.gz
    COMMAND bash ${CMAKE_SOURCE_DIR}/cmake/manpage_commands.sh $<TARGET_FILE:zrt> commands.h2m
    COMMAND ${HELP2MAN} --no-info --name=${CPACK_PACKAGE_DESCRIPTION_SUMMARY}
            --include=commands.h2m --output=zrt.1 $<TARGET_FILE:zrt>
    COMMAND gzip -9nf zrt.1
    DEPENDS zrt ${CMAKE_SOURCE_DIR}/cmake/manpage_commands.sh
    WORKING_DIRECTORY ${ZRT_DOCS_DIR}
    VERBATIM)
add_custom_command(OUTPUT ${ZRT_DOCS_DIR}/zrt
    COMMAND bash ${CMAKE_SOURCE_DIR}/cmake/bash_completion.sh $<TARGET_FILE:zrt> zrt
    DEPENDS zrt ${CMAKE_SOURCE_DIR}/cmake/bash_completion.sh
    WORKING_DIRECTORY ${ZRT_DOCS_DIR}
    VERBATIM)
install(FILES ${ZRT_DOCS_DIR}/zrt.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${ZRT_DOCS_DIR}/zrt DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)

# Debian's documentation folder: the copyright and the changelog, compressed
# as policy asks, both naming the maintainer above.
configure_file(${CMAKE_SOURCE_DIR}/resources/copyright.in ${ZRT_DOCS_DIR}/copyright @ONLY)
configure_file(${CMAKE_SOURCE_DIR}/resources/changelog.in ${ZRT_DOCS_DIR}/changelog @ONLY)
add_custom_command(OUTPUT ${ZRT_DOCS_DIR}/changelog.gz
    COMMAND gzip -9nkf changelog
    DEPENDS ${ZRT_DOCS_DIR}/changelog
    WORKING_DIRECTORY ${ZRT_DOCS_DIR}
    VERBATIM)
install(FILES ${ZRT_DOCS_DIR}/copyright ${ZRT_DOCS_DIR}/changelog.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/zrt)

add_custom_target(zrt_docs ALL DEPENDS ${ZRT_DOCS_DIR}/zrt.1.gz ${ZRT_DOCS_DIR}/zrt ${ZRT_DOCS_DIR}/changelog.gz)

include(CPack)
