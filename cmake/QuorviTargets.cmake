# Strictness and hardening, set once for all targets, and the words with which rooms declare what
# they build: quorvi_library, quorvi_feature, quorvi_program, quorvi_module, quorvi_test.

add_library(quorvi_flags INTERFACE)
target_compile_features(quorvi_flags INTERFACE cxx_std_20)
target_include_directories(quorvi_flags INTERFACE "${CMAKE_SOURCE_DIR}")
set(quorvi_optimised $<CONFIG:Release,RelWithDebInfo>)
if(QUORVI_SANITIZE)
  set(quorvi_optimised 1)
endif()
target_compile_options(quorvi_flags INTERFACE
  $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror>
  $<$<COMPILE_LANGUAGE:CXX>:-fstack-protector-strong -fno-strict-overflow>
  $<$<CONFIG:Release,RelWithDebInfo>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>
  # Optimising, GCC takes std::string's and std::vector's own copies for overflows where there are
  # none; what runs over is for the address sanitizer to find.
  $<$<AND:$<CXX_COMPILER_ID:GNU>,${quorvi_optimised}>:-Wno-array-bounds -Wno-restrict -Wno-stringop-overflow -Wno-stringop-overread>)
target_link_options(quorvi_flags INTERFACE -Wl,-z,relro,-z,now -Wl,--as-needed)
if(QUORVI_SANITIZE)
  target_compile_options(quorvi_flags INTERFACE
    -fsanitize=${QUORVI_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quorvi_flags INTERFACE -fsanitize=${QUORVI_SANITIZE})
endif()

# What a test itself does need not be quick, and compiles in half the time when the optimiser leaves
# it alone; what it tests is optimised as it is delivered.
add_library(quorvi_test_flags INTERFACE)
target_compile_options(quorvi_test_flags INTERFACE
  $<$<CONFIG:Release,RelWithDebInfo>:-O0>)
if(QUORVI_SANITIZE MATCHES "undefined")
  # Nor need it be watched for undefined behaviour, which takes a third of its compiling.
  target_compile_options(quorvi_test_flags INTERFACE -fno-sanitize=undefined)
endif()

# Qt strictness: no text from char arrays, no old foreach or keywords, no connect without context.
add_library(quorvi_qt_flags INTERFACE)
target_link_libraries(quorvi_qt_flags INTERFACE quorvi_flags)
target_compile_definitions(quorvi_qt_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH
  QT_NO_KEYWORDS QT_NO_CONTEXTLESS_CONNECT QT_STRICT_ITERATORS)
# Qt's test library defines its test's folder for each target; precompiled headers that targets
# share may know no such thing, and no test asks for it.
target_compile_options(quorvi_qt_flags INTERFACE -UQT_TESTCASE_BUILDDIR -UQT_TESTCASE_SOURCEDIR)

# quorvi_precompiled(name HEADER LIBS …): an owner of precompiled headers, which quorvi_precompile
# lends to all targets of a kind. Off (QUORVI_PRECOMPILE) where the sources shall show that each
# includes what it uses.
function(quorvi_precompiled name header)
  add_library(${name} OBJECT EXCLUDE_FROM_ALL "${CMAKE_SOURCE_DIR}/cmake/pch/empty.cpp")
  target_link_libraries(${name} PRIVATE ${ARGN})
  target_precompile_headers(${name} PRIVATE "${CMAKE_SOURCE_DIR}/cmake/pch/${header}")
endfunction()
function(quorvi_precompile name owner)
  if(QUORVI_PRECOMPILE)
    target_precompile_headers(${name} REUSE_FROM ${owner})
  endif()
endfunction()

# quorvi_library(name [QT] SOURCES … LIBS …): one room's library. Without QT it cannot see Qt.
function(quorvi_library name)
  cmake_parse_arguments(ARG "QT" "" "SOURCES;LIBS;PRIVATE_LIBS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  if(ARG_QT)
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON)
    target_link_libraries(${name} PUBLIC quorvi_qt_flags ${ARG_LIBS} PRIVATE ${ARG_PRIVATE_LIBS})
    quorvi_precompile(${name} quorvi_pch_window)
  else()
    target_link_libraries(${name} PUBLIC quorvi_flags ${ARG_LIBS} PRIVATE ${ARG_PRIVATE_LIBS})
    quorvi_precompile(${name} quorvi_pch_logic)
  endif()
endfunction()

# quorvi_feature(name LOGIC … UI … USES … WITH …): one feature of pages/<name>, from its class names.
# LOGIC becomes the library quorvi_<name>, which cannot see Qt, UI the library quorvi_<name>_ui. USES
# names the rooms that the feature needs beyond the kit: refdata, link, desktop, or html, backup and
# report, which only the UI sees; WITH, what the logic alone links from outside. All features together are
# quorvi_pages and quorvi_pages_ui.
function(quorvi_feature name)
  cmake_parse_arguments(ARG "" "" "LOGIC;UI;USES;WITH" ${ARGN})
  set(ui_rooms quorvi_${name} quorvi_kit_ui)
  foreach(room html backup phone_backup report)
    if(room IN_LIST ARG_USES)
      list(REMOVE_ITEM ARG_USES ${room})
      list(APPEND ui_rooms quorvi_${room})
    endif()
  endforeach()
  list(TRANSFORM ARG_USES PREPEND quorvi_)
  list(TRANSFORM ARG_LOGIC REPLACE "(.+)" "${name}/\\1.cpp")
  if(ARG_LOGIC)
    quorvi_library(quorvi_${name}
      SOURCES ${ARG_LOGIC} LIBS quorvi_kit ${ARG_USES} PRIVATE_LIBS ${ARG_WITH})
  else()
    add_library(quorvi_${name} INTERFACE)
    target_link_libraries(quorvi_${name} INTERFACE quorvi_kit ${ARG_USES})
  endif()
  target_link_libraries(quorvi_pages INTERFACE quorvi_${name})
  if(QUORVI_WITH_QT)
    if(ARG_UI)
      list(TRANSFORM ARG_UI REPLACE "(.+)" "${name}/\\1.cpp;${name}/\\1.h")
      quorvi_library(quorvi_${name}_ui QT SOURCES ${ARG_UI} LIBS ${ui_rooms})
    else()
      add_library(quorvi_${name}_ui INTERFACE)
      target_link_libraries(quorvi_${name}_ui INTERFACE ${ui_rooms})
    endif()
    target_link_libraries(quorvi_pages_ui INTERFACE quorvi_${name}_ui)
  endif()
endfunction()

# quorvi_program(name [QT] [TOOL] SOURCES … LIBS …): a program in bin/, where all stands that is
# delivered; with TOOL in tools/: what developers run.
function(quorvi_program name)
  cmake_parse_arguments(ARG "QT;TOOL" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  if(ARG_TOOL)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tools")
  endif()
  if(ARG_QT)
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON)
    target_link_libraries(${name} PRIVATE quorvi_qt_flags ${ARG_LIBS})
    quorvi_precompile(${name} quorvi_pch_window)
  else()
    target_link_libraries(${name} PRIVATE quorvi_flags ${ARG_LIBS})
    quorvi_precompile(${name} quorvi_pch_logic)
  endif()
endfunction()

# quorvi_module(name SOURCES … LIBS …): a library with Qt that programs load while they run, in
# lib/quorvi/, where an installed suite has it too.
function(quorvi_module name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_library(${name} MODULE ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON
    LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib/quorvi")
  target_link_libraries(${name} PRIVATE quorvi_qt_flags ${ARG_LIBS})
  quorvi_precompile(${name} quorvi_pch_window)
endfunction()

# Whether a test program may have a network of its own, as root or as root of a user namespace
# (tests/support/PrivateNetwork.cpp). The latter is for processes of one thread, and the thread
# sanitizer brings one of its own.
function(quorvi_find_own_network)
  set(ways "--net")
  if(NOT QUORVI_SANITIZE MATCHES "thread")
    list(APPEND ways "-Un")
  endif()
  foreach(options ${ways})
    execute_process(COMMAND unshare ${options} true RESULT_VARIABLE status OUTPUT_QUIET ERROR_QUIET)
    if(status EQUAL 0)
      set(QUORVI_OWN_NETWORK ON PARENT_SCOPE)
      return()
    endif()
  endforeach()
  message(STATUS "No network namespaces: tests that use the suite's fixed ports run one at a time")
  set(QUORVI_OWN_NETWORK OFF PARENT_SCOPE)
endfunction()
quorvi_find_own_network()

# quorvi_test_part(name [QT] SOURCES … LIBS …): a main, or what GoogleTest finds by itself; compiled
# once for all test programs that name it among their LIBS.
function(quorvi_test_part name)
  cmake_parse_arguments(ARG "QT" "" "SOURCES;LIBS" ${ARGN})
  add_library(${name} OBJECT ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC quorvi_test_flags ${ARG_LIBS} GTest::gmock GTest::gtest)
  if(ARG_QT)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PUBLIC quorvi_qt_flags Qt6::Test)
    quorvi_precompile(${name} quorvi_pch_window_tests)
  else()
    target_link_libraries(${name} PUBLIC quorvi_flags)
    quorvi_precompile(${name} quorvi_pch_tests)
  endif()
endfunction()

# quorvi_test(name [QT] [MOC] [WHOLE] [OWN_NETWORK] [NO_THREADS] SOURCES … LIBS … [LABEL l]
# [TIMEOUT s] [WRAPPER cmd…] [ENV k=v…]):
# a GoogleTest program. Each test becomes a test of ctest's own; with WHOLE, or with a WRAPPER, the
# program is one (for suites whose set-up is dear). MOC: one of its sources declares a Q_OBJECT.
# OWN_NETWORK: its tests use the suite's fixed ports, so each process has a network of its own, and
# where the system has none to give, they hold one lock, and run one at a time. NO_THREADS: its tests
# start no thread, and end when one does; the preset of the thread sanitizer leaves the program out.
# LABEL: ctest's, and the target tests_<label> builds all programs that bear it: `e2e` real adb and
# simulated phones, `browser` what shows an HTML view and `desktop` what speaks with a session bus or
# a display, whose libraries' threads the thread sanitizer cannot tell from ours; `quick`, where none
# is told, all else.
function(quorvi_test name)
  cmake_parse_arguments(ARG
    "QT;MOC;WHOLE;OWN_NETWORK;NO_THREADS" "TIMEOUT;LABEL" "SOURCES;LIBS;WRAPPER;ENV" ${ARGN})
  if(ARG_NO_THREADS AND QUORVI_SANITIZE STREQUAL "thread")
    return()
  endif()
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/test-bin")
  if(ARG_MOC)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
  endif()
  if(ARG_QT)
    target_link_libraries(${name} PRIVATE quorvi_qt_flags Qt6::Test)
    quorvi_precompile(${name} quorvi_pch_window_tests)
    if(QUORVI_SANITIZE MATCHES "address")
      # A plug-in of Qt's brings libjpeg while the program runs, and the leak checker crashes over
      # thread-local variables that came so late: here it comes with the program.
      target_link_options(${name} PRIVATE "LINKER:--push-state,--no-as-needed,-ljpeg,--pop-state")
    endif()
    # A screen that has room for the window at its usual size.
    list(APPEND ARG_ENV
      "QT_QPA_PLATFORM=offscreen:configfile=${CMAKE_SOURCE_DIR}/tests/support/screen.json")
  else()
    target_link_libraries(${name} PRIVATE quorvi_flags)
    quorvi_precompile(${name} quorvi_pch_tests)
  endif()
  target_link_libraries(${name} PRIVATE
    quorvi_test_flags ${ARG_LIBS} GTest::gmock GTest::gtest quorvi_test_main)
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  # No test speaks to the user's session bus; who needs one starts its own by the wrapper.
  set(properties TIMEOUT ${ARG_TIMEOUT}
    ENVIRONMENT_MODIFICATION DBUS_SESSION_BUS_ADDRESS=set:disabled:)
  if(ARG_NO_THREADS)
    target_link_libraries(${name} PRIVATE quorvi_no_threads)
  endif()
  if(ARG_OWN_NETWORK)
    target_link_libraries(${name} PRIVATE quorvi_own_network)
    if(NOT QUORVI_OWN_NETWORK)
      list(APPEND properties RESOURCE_LOCK fixed_ports)
    endif()
  endif()
  if(ARG_ENV)
    list(APPEND properties ENVIRONMENT "${ARG_ENV}")
  endif()
  if(NOT ARG_LABEL)
    set(ARG_LABEL quick)
  endif()
  list(APPEND properties LABELS "${ARG_LABEL}")
  if(NOT TARGET tests_${ARG_LABEL})
    add_custom_target(tests_${ARG_LABEL})
  endif()
  add_dependencies(tests_${ARG_LABEL} ${name})
  if(ARG_WHOLE OR ARG_WRAPPER)
    add_test(NAME ${name} COMMAND ${ARG_WRAPPER} $<TARGET_FILE:${name}>)
    set_tests_properties(${name} PROPERTIES ${properties})
  else()
    include(GoogleTest)
    # On a slow disk a program with a browser takes seconds to be read for the first time.
    gtest_discover_tests(${name}
      DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 PROPERTIES ${properties})
  endif()
endfunction()
