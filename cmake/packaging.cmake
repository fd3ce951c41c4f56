# Installation and the Debian packages. One build makes two packages: `zrt`,
# the command line, which a server can take without any of Qt's GUI, and
# `zrt-window`, the window. The packages are meant to be built from a Release
# build (README, "Installing"); CPack strips the programs either way.
set(ZRT_MAINTAINER "ZRT maintainers <maintainers@users.noreply.c-seed-a57f6d85.example>")

install(TARGETS zrt RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT commandline)
install(TARGETS zrt-window RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT window)
install(FILES ${CMAKE_SOURCE_DIR}/resources/zrt.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications
        COMPONENT window)
install(FILES ${CMAKE_SOURCE_DIR}/resources/zrt.png DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/64x64/apps
        COMPONENT window)
install(FILES ${CMAKE_SOURCE_DIR}/resources/zrt.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
        COMPONENT window)

# The manual pages and the bash and zsh completion, written by zrt-docs from
# the syntax the program's parser and help read, so they follow its commands,
# forms and options.
set(ZRT_DOCS_DIR ${CMAKE_BINARY_DIR}/docs)
file(MAKE_DIRECTORY ${ZRT_DOCS_DIR})
# The newest changelog entry dates the pages, so that a rebuild writes the same bytes.
file(STRINGS ${CMAKE_SOURCE_DIR}/resources/changelog.in ZRT_RELEASE_LINE REGEX "^ -- " LIMIT_COUNT 1)
string(REGEX REPLACE ".*, ([0-9]+ [A-Za-z]+ [0-9]+) .*" "\\1" ZRT_RELEASE_DATE "${ZRT_RELEASE_LINE}")

function(zrt_manual_page name)
    set(template ${CMAKE_SOURCE_DIR}/resources/${name}.1.in)
    add_custom_command(OUTPUT ${ZRT_DOCS_DIR}/${name}.1.gz
        COMMAND zrt-docs manual ${template} ${name}.1 ${PROJECT_VERSION} ${ZRT_RELEASE_DATE}
        COMMAND gzip -9nf ${name}.1
        DEPENDS zrt-docs ${template}
        WORKING_DIRECTORY ${ZRT_DOCS_DIR}
        VERBATIM)
endfunction()
zrt_manual_page(zrt)
zrt_manual_page(zrt-window)

set(ZRT_COMPLETION ${CMAKE_SOURCE_DIR}/resources/completion)
add_custom_command(OUTPUT ${ZRT_DOCS_DIR}/zrt ${ZRT_DOCS_DIR}/_zrt
    COMMAND zrt-docs completion ${ZRT_COMPLETION}/zrt.bash ${ZRT_COMPLETION}/words.sh zrt
    COMMAND zrt-docs completion ${ZRT_COMPLETION}/_zrt.zsh ${ZRT_COMPLETION}/words.sh _zrt
    DEPENDS zrt-docs ${ZRT_COMPLETION}/zrt.bash ${ZRT_COMPLETION}/_zrt.zsh ${ZRT_COMPLETION}/words.sh
    WORKING_DIRECTORY ${ZRT_DOCS_DIR}
    VERBATIM)

install(FILES ${ZRT_DOCS_DIR}/zrt.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT commandline)
install(FILES ${ZRT_DOCS_DIR}/zrt-window.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT window)
install(FILES ${ZRT_DOCS_DIR}/zrt DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        COMPONENT commandline)
install(FILES ${ZRT_DOCS_DIR}/_zrt DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions COMPONENT commandline)

# Debian's documentation folder of each package: the copyright and the
# changelog, compressed as policy asks, both naming the maintainer above.
configure_file(${CMAKE_SOURCE_DIR}/resources/copyright.in ${ZRT_DOCS_DIR}/copyright @ONLY)
configure_file(${CMAKE_SOURCE_DIR}/resources/changelog.in ${ZRT_DOCS_DIR}/changelog @ONLY)
add_custom_command(OUTPUT ${ZRT_DOCS_DIR}/changelog.gz
    COMMAND gzip -9nkf changelog
    DEPENDS ${ZRT_DOCS_DIR}/changelog
    WORKING_DIRECTORY ${ZRT_DOCS_DIR}
    VERBATIM)
install(FILES ${ZRT_DOCS_DIR}/copyright ${ZRT_DOCS_DIR}/changelog.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/zrt
        COMPONENT commandline)
install(FILES ${ZRT_DOCS_DIR}/copyright ${ZRT_DOCS_DIR}/changelog.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/zrt-window
        COMPONENT window)

add_custom_target(zrt_docs ALL
    DEPENDS ${ZRT_DOCS_DIR}/zrt.1.gz ${ZRT_DOCS_DIR}/zrt-window.1.gz ${ZRT_DOCS_DIR}/zrt ${ZRT_DOCS_DIR}/_zrt
            ${ZRT_DOCS_DIR}/changelog.gz)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zrt)
set(CPACK_PACKAGE_CONTACT "${ZRT_MAINTAINER}")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL commandline window)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE zrt)
set(CPACK_DEBIAN_PACKAGE_SECTION database)
set(CPACK_STRIP_FILES ON)
# The libraries each program links, found by dpkg-shlibdeps, and what it
# loads at run time.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(CPACK_DEBIAN_COMMANDLINE_PACKAGE_NAME zrt)
# The ODBC driver manager and FreeTDS's driver, which reaches SQL Server.
set(CPACK_DEBIAN_COMMANDLINE_PACKAGE_DEPENDS "unixodbc, tdsodbc")
set(CPACK_DEBIAN_COMMANDLINE_DESCRIPTION "maintenance of the SQL Server databases of Quorvex companies
ZRT brings one of the accounting application's SQL Server databases (one per
company and account year, named Quorvex...) to the schema the application
expects: tables and columns, built-in rows, the 62 report views and the
standard chart of accounts. Every statement is safe to repeat, so it is run
on every database after every upgrade of the application.

This package holds the command line, which needs no display and none of Qt's
GUI: its commands script, list, run, plan and check write the statements,
list the databases of a server, run the maintenance on one or every database
with a report, preview a run and roll it back, and compare a database with
what a run leaves. SQL Server is reached through unixODBC and the FreeTDS
driver. The window is in the package zrt-window.")

set(CPACK_DEBIAN_WINDOW_PACKAGE_NAME zrt-window)
# The command line of the same build, for its ODBC set-up, and the platform
# plugins the window is drawn through.
set(CPACK_DEBIAN_WINDOW_PACKAGE_DEPENDS "zrt (= ${PROJECT_VERSION}), qt6-qpa-plugins")
set(CPACK_DEBIAN_WINDOW_DESCRIPTION "window for the maintenance of Quorvex company databases
ZRT brings one of the accounting application's SQL Server databases (one per
company and account year, named Quorvex...) to the schema the application
expects: tables and columns, built-in rows, the 62 report views and the
standard chart of accounts.

This package holds the window: pick a connection mode, a server and a
database, and press the process button. The command line, for servers and
scripts, is in the package zrt.")

include(CPack)
