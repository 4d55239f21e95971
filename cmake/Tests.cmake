# The test programs and the tests that are whole builds of their own.
include(GoogleTest)

if(CMAKE_CROSSCOMPILING)
  # Debian's GoogleTest is built for this machine only; its sources are there too.
  set(INSTALL_GTEST OFF)
  set(BUILD_SHARED_LIBS_BEFORE ${BUILD_SHARED_LIBS})
  set(BUILD_SHARED_LIBS OFF)
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
  set(BUILD_SHARED_LIBS ${BUILD_SHARED_LIBS_BEFORE})
else()
  find_package(GTest REQUIRED)
  find_library(LCMS2_LIBRARY lcms2 REQUIRED)
endif()

# What formats or parses, and so runs in a comma locale too; and what takes long or kills processes, and so runs once.
set(text_tests "*Text*:*String*:*Number*:*Date*:*International*:*File*:*Ini*:*Golden*:*Report*:*Writer*:*Axis*:*Curve*:*Scale*:*Language*:*Reader*")
set(soak_tests "*Soak*:*Process*:*Kill*")

# kv_test_program(NAME): a program of GoogleTest: precompiled headers, and a time limit and labels for its tests.
function(kv_test_program name)
  if(NOT CMAKE_CROSSCOMPILING)
    target_precompile_headers(${name} PRIVATE <gtest/gtest.h> <array> <filesystem> <fstream> <functional> <memory> <optional>
                                              <sstream> <string> <string_view> <thread> <vector>)
  endif()
  set(options DISCOVERY_MODE PRE_TEST)
  gtest_discover_tests(${name} ${options} TEST_FILTER "${text_tests}-${soak_tests}" PROPERTIES TIMEOUT 60 LABELS text)
  gtest_discover_tests(${name} ${options} TEST_FILTER "${soak_tests}" PROPERTIES TIMEOUT 60 LABELS soak)
  gtest_discover_tests(${name} ${options} TEST_FILTER "-${text_tests}:${soak_tests}" PROPERTIES TIMEOUT 60)
endfunction()

# A shared object of its own, which uses the library from a static initialiser.
add_library(StaticInitProbe KVUtils/Tests/staticinit/StaticInitProbe.cpp)
target_link_libraries(StaticInitProbe PUBLIC KVUtils::KVUtils PRIVATE kvutils_options)
set_target_properties(StaticInitProbe PROPERTIES WINDOWS_EXPORT_ALL_SYMBOLS ON)

# A mail client's library as the tests want it: whole, and with entries missing.
set(mail_client KVUtils/Tests/mail/MailClient)
add_library(MailClient SHARED ${mail_client}State.cpp ${mail_client}Sending.cpp ${mail_client}Reading.cpp)
add_library(MailClientThatCannotSend SHARED ${mail_client}State.cpp ${mail_client}Reading.cpp)
add_library(MailClientThatCannotLogOn SHARED ${mail_client}State.cpp ${mail_client}Sending.cpp)
set(mail_clients MailClient MailClientThatCannotSend MailClientThatCannotLogOn)
foreach(library IN LISTS mail_clients)
  target_include_directories(${library} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${library} PRIVATE kvutils_options)
  set_target_properties(${library} PROPERTIES WINDOWS_EXPORT_ALL_SYMBOLS ON)
endforeach()

# The other processes that tests start. Programs find one another by their names, so each has a folder of its own.
add_executable(ConfigWriter Platform/Tests/ConfigWriter.cpp)
add_executable(PostOfficePeer KVUtils/Tests/messaging/PostOfficePeer.cpp)
set_target_properties(PostOfficePeer PROPERTIES OUTPUT_NAME HQMSERV RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/peer)
if(WIN32)
  # A program is started only with its libraries beside it.
  file(GLOB compiler_libraries ${CMAKE_BINARY_DIR}/lib*-*.dll)
  add_custom_command(TARGET PostOfficePeer POST_BUILD COMMAND ${CMAKE_COMMAND} -E copy_if_different
                     $<TARGET_RUNTIME_DLLS:PostOfficePeer> ${compiler_libraries} $<TARGET_FILE_DIR:PostOfficePeer>)
endif()
add_executable(DdePeer Platform/Tests/DdePeer.cpp Platform/Tests/DdeEndpoint.cpp)
foreach(program ConfigWriter PostOfficePeer DdePeer)
  target_link_libraries(${program} PRIVATE KVUtils::KVUtils kvutils_options)
endforeach()

file(GLOB_RECURSE library_tests CONFIGURE_DEPENDS KVUtils/Tests/*Test.cpp SV/Tests/*Test.cpp
     Platform/Tests/*Test.cpp Platform/Tests/*TestSystem.cpp)
list(FILTER library_tests EXCLUDE REGEX "/Tests/qt/|/printing/queue/")
if(CMAKE_CROSSCOMPILING)
  list(FILTER library_tests EXCLUDE REGEX "LittleCmsTest.cpp$")
endif()
if(WIN32)
  list(FILTER library_tests EXCLUDE REGEX "/posix/")
else()
  list(FILTER library_tests EXCLUDE REGEX "/win32/")
endif()
# A fuzzer's comparison with its model, also run with fixed seeds.
set_source_files_properties(Fuzz/messaging/MyMemoryBlockFuzz.cpp PROPERTIES
  COMPILE_DEFINITIONS LLVMFuzzerTestOneInput=CompareMyMemoryBlockWithModel)
# They include the system's headers, or define its macros, before or after the library's.
file(GLOB macro_tests CONFIGURE_DEPENDS KVUtils/Tests/messaging/posix/X11MacrosTest.cpp
     KVUtils/Tests/messaging/win32/*.cpp)
file(GLOB system_tests CONFIGURE_DEPENDS Platform/Tests/win32/*.cpp)
set_source_files_properties(${system_tests} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
set_source_files_properties(${macro_tests} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
add_executable(KVUtilsTests cmake/tests/TestMain.cpp Platform/Tests/DdeEndpoint.cpp
               Fuzz/messaging/MyMemoryBlockFuzz.cpp ${library_tests})
target_link_libraries(KVUtilsTests PRIVATE KVUtils::KVUtils StaticInitProbe GTest::gtest ${LCMS2_LIBRARY} kvutils_options)
target_compile_definitions(KVUtilsTests PRIVATE
  KV_LIBRARY_TESTS="${PROJECT_SOURCE_DIR}/KVUtils/Tests"
  KV_TEXTS="${PROJECT_SOURCE_DIR}/Apps/LNG"
  KV_CONFIG_WRITER="$<TARGET_FILE:ConfigWriter>"
  KV_DDE_PEER="$<TARGET_FILE:DdePeer>"
  KV_MESSAGING_TESTS="${PROJECT_SOURCE_DIR}/KVUtils/Tests/messaging"
  KV_MAIL_CLIENT="$<TARGET_FILE:MailClient>"
  KV_MAIL_CLIENT_THAT_CANNOT_SEND="$<TARGET_FILE:MailClientThatCannotSend>"
  KV_MAIL_CLIENT_THAT_CANNOT_LOG_ON="$<TARGET_FILE:MailClientThatCannotLogOn>"
  KV_POST_OFFICE_PEER="$<TARGET_FILE:PostOfficePeer>")
add_dependencies(KVUtilsTests ConfigWriter DdePeer PostOfficePeer ${mail_clients})
kv_test_program(KVUtilsTests)

if(KVUTILS_BUILD_MAIL)
  file(GLOB kvmail_tests CONFIGURE_DEPENDS Platform/mail/Tests/*Test.cpp)
  add_executable(KvmailTests cmake/tests/TestMain.cpp Platform/Tests/posix/TestSystem.cpp ${kvmail_tests})
  target_link_libraries(KvmailTests PRIVATE kvmail_core KVUtils::KVUtils GTest::gtest kvutils_options)
  target_compile_definitions(KvmailTests PRIVATE
    KV_MAIL_LIBRARY="$<TARGET_FILE:kvmail>"
    KV_MAIL_SERVERS="${PROJECT_SOURCE_DIR}/Platform/mail/Tests/MailServers.py")
  add_dependencies(KvmailTests kvmail)
  kv_test_program(KvmailTests)
endif()

if(KVUTILS_BUILD_APPS)
  file(GLOB_RECURSE app_tests CONFIGURE_DEPENDS Apps/Tests/*Test.cpp)
  list(FILTER app_tests EXCLUDE REGEX "/ColourDesk/qt/")
  set(system posix)
  if(WIN32)
    set(system win32)
  endif()
  add_executable(AppsTests cmake/tests/TestMain.cpp Platform/Tests/${system}/TestSystem.cpp ${app_tests})
  target_link_libraries(AppsTests PRIVATE colour_desk measuring_server kvcolor_commands GTest::gtest kvutils_options)
  target_compile_definitions(AppsTests PRIVATE
    KV_APPS_DATA="${PROJECT_SOURCE_DIR}/Apps/data"
    KV_APPS_TESTS="${PROJECT_SOURCE_DIR}/Apps/Tests"
    KV_TEXTS="${PROJECT_SOURCE_DIR}/Apps/LNG"
    KV_MAIL_CLIENT="$<TARGET_FILE:MailClient>"
    KV_PRINTS=$<IF:$<TARGET_EXISTS:kvcolor_printing>,true,false>
    KV_COLOR="$<TARGET_FILE:kvcolor>"
    KV_HQMSERV="$<TARGET_FILE:MeasuringServer>")
  add_dependencies(AppsTests kvcolor MailClient MeasuringServer)
  kv_test_program(AppsTests)
endif()

# Windows by real events, without a display unless the environment names a platform of Qt's.
if(KVUTILS_BUILD_QT)
  find_package(Qt6 REQUIRED COMPONENTS Widgets Svg Test)
  file(GLOB qt_tests CONFIGURE_DEPENDS SV/Tests/qt/*.cpp KVUtils/Tests/qt/*.cpp)
  add_executable(KVUtilsQtTests ${qt_tests} Platform/Tests/DdeEndpoint.cpp Platform/Tests/posix/TestSystem.cpp)
  target_link_libraries(KVUtilsQtTests PRIVATE KVUtils::Qt Qt6::Widgets Qt6::Svg Qt6::Test GTest::gtest kvutils_options)
  target_compile_definitions(KVUtilsQtTests PRIVATE QT_NO_KEYWORDS
    KV_DDE_PEER="$<TARGET_FILE:DdePeer>"
    KV_TEXTS="${PROJECT_SOURCE_DIR}/Apps/LNG"
    KV_PICTURES="${PROJECT_SOURCE_DIR}/KVUtils/Tests/qt/pictures")
  add_dependencies(KVUtilsQtTests DdePeer)
  kv_test_program(KVUtilsQtTests)

  # A program of its own: which print server is asked is settled once for a process. One test for all that it prints,
  # since each starts a server.
  file(GLOB print_tests CONFIGURE_DEPENDS KVUtils/Tests/printing/queue/*.cpp)
  add_executable(KVUtilsPrintTests SV/Tests/qt/TestMain.cpp ${print_tests})
  target_link_libraries(KVUtilsPrintTests PRIVATE KVUtils::Qt Qt6::Widgets Qt6::Test GTest::gtest kvutils_options)
  target_compile_definitions(KVUtilsPrintTests PRIVATE QT_NO_KEYWORDS KV_TEXTS="${PROJECT_SOURCE_DIR}/Apps/LNG")
  add_test(NAME PrintQueue COMMAND KVUtilsPrintTests)
  set_tests_properties(PrintQueue PROPERTIES TIMEOUT 60 LABELS system SKIP_REGULAR_EXPRESSION "no print server here")
endif()

if(KVUTILS_BUILD_QT AND KVUTILS_BUILD_APPS)
  file(GLOB desk_tests CONFIGURE_DEPENDS Apps/Tests/ColourDesk/qt/*.cpp)
  add_executable(ColourDeskTests SV/Tests/qt/TestMain.cpp ${desk_tests})
  target_link_libraries(ColourDeskTests PRIVATE colour_desk KVUtils::Qt Qt6::Widgets Qt6::Test GTest::gtest kvutils_options)
  target_compile_definitions(ColourDeskTests PRIVATE
    QT_NO_KEYWORDS
    KV_APPS_DATA="${PROJECT_SOURCE_DIR}/Apps/data"
    KV_TEXTS="${PROJECT_SOURCE_DIR}/Apps/LNG"
    KV_COLOURDESK="$<TARGET_FILE:ColourDesk>"
    KV_HQMSERV="$<TARGET_FILE:MeasuringServer>")
  add_dependencies(ColourDeskTests ColourDesk MeasuringServer)
  kv_test_program(ColourDeskTests)
endif()

# Every public header compiles alone, twice over: the file below each header's name includes nothing else.
if(KVUTILS_CHECK_HEADERS)
  file(GLOB_RECURSE public_headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} KVUtils/*.h SV/*.h)
  list(FILTER public_headers EXCLUDE REGEX "/Tests/|^SV/qt/")
  if(KVUTILS_BUILD_QT)
    list(APPEND public_headers SV/qt/QtBackend.h)
  endif()
  foreach(header IN LISTS public_headers)
    set(probe ${CMAKE_BINARY_DIR}/headers/${header}.cpp)
    file(CONFIGURE OUTPUT ${probe} CONTENT "#include \"${header}\"\n#include \"${header}\"\n")
    list(APPEND header_probes ${probe})
  endforeach()
  add_library(HeadersAlone OBJECT ${header_probes})
  target_link_libraries(HeadersAlone PRIVATE KVUtils::KVUtils kvutils_options)
  set_target_properties(HeadersAlone PROPERTIES UNITY_BUILD OFF)

  # The same for every source: a target for builds that join none of them.
  add_custom_target(EachFileAlone)
  foreach(target HeadersAlone KVUtils KVUtilsQt kvmail kvcolor kvcolor_printing MeasuringServer ColourDesk)
    if(TARGET ${target})
      add_dependencies(EachFileAlone ${target})
    endif()
  endforeach()
endif()

# A stranger's program against an installed copy, and the README's own first program.
if(NOT CMAKE_CROSSCOMPILING AND NOT KVUTILS_SANITIZE)
  add_test(NAME InstalledCopy
           COMMAND ${CMAKE_COMMAND} -DBUILD=${CMAKE_BINARY_DIR} -DSOURCE=${PROJECT_SOURCE_DIR}
                   -DCOMPILER=${CMAKE_CXX_COMPILER} -DGENERATOR=${CMAKE_GENERATOR} -DQT=${KVUTILS_BUILD_QT}
                   -P ${PROJECT_SOURCE_DIR}/cmake/tests/InstalledCopy.cmake)
  set_tests_properties(InstalledCopy PROPERTIES TIMEOUT 300 LABELS system)
endif()
