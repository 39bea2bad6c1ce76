# libpulse comes with a configuration of its own, without a target.
find_package(PulseAudio REQUIRED)
add_library(PulseAudio::Client INTERFACE IMPORTED)
target_include_directories(PulseAudio::Client INTERFACE ${PULSEAUDIO_INCLUDE_DIR})
target_link_libraries(PulseAudio::Client INTERFACE ${PULSEAUDIO_LIBRARY})
# The tests listen with the blocking form of the client.
add_library(PulseAudio::Simple INTERFACE IMPORTED)
if(TEMBREL_BUILD_TESTS)
  find_library(PULSEAUDIO_SIMPLE_LIBRARY pulse-simple REQUIRED)
  target_link_libraries(PulseAudio::Simple INTERFACE PulseAudio::Client ${PULSEAUDIO_SIMPLE_LIBRARY})
endif()
