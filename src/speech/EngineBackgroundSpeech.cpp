#include "speech/EngineBackgroundSpeech.h"

#include <exception>
#include <stop_token>
#include <utility>

#include "platform/QtChildProcesses.h"

namespace repvolta {
namespace {

/// Ends an engine that nobody waits for any more.
class NotWanted {};

/// The reason why the text was not spoken, or "". Throws NotWanted.
std::string FailureOf(const EngineBackgroundSpeech::Make& make, const SpeechRequest& request,
                      const std::stop_token& stop) {
  QtChildProcesses processes([&stop] {
    if (stop.stop_requested()) throw NotWanted();
  });
  try {
    make(processes)->SpeakToFile(request);
    return "";
  } catch (const std::exception& error) {
    return error.what();
  }
}

}  // namespace

void EngineBackgroundSpeech::Speak(const SpeechRequest& request, Done done) {
  Stop();
  done_ = std::move(done);
  thread_ = std::jthread([this, make = make_, post = mailbox_.Poster(), turn = turn_,
                          request](const std::stop_token& stop) {
    try {
      post([this, turn, failure = FailureOf(make, request, stop)] { Tell(turn, failure); });
    } catch (const NotWanted&) {
    }
  });
}

void EngineBackgroundSpeech::Stop() {
  ++turn_;
  thread_ = {};
}

void EngineBackgroundSpeech::Tell(int turn, const std::string& failure) {
  if (turn == turn_) std::exchange(done_, {})(failure);
}

}  // namespace repvolta
