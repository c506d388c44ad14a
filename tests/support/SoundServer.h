#pragma once

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <memory>
#include <string>
#include <vector>

#include "base/Bytes.h"

namespace repvolta {

/// The samples that an output of a SoundServer plays: 16 bits, 16 kHz, one channel.
class SoundRecording {
 public:
  SoundRecording(const std::string& output, const QProcessEnvironment& environment);
  ~SoundRecording();

  /// Waits until so many more samples are recorded.
  void Await(std::size_t samples);

  /// Waits until something is heard that was not recorded yet.
  void AwaitSound();

  /// Waits until it has been quiet for half a second.
  void AwaitQuiet();

  const std::vector<std::int16_t>& Samples() const { return samples_; }

 private:
  bool Read();

  QProcess recorder_;
  QFile file_;
  QByteArray rest_;
  std::vector<std::int16_t> samples_;
};

/// A sound system of its own for one test, with the outputs "Loudspeaker" and "Headphones", which
/// play into nothing and can be recorded. Works without a bus and as any user. Uses the current
/// directory; its process ends with it.
class SoundServer {
 public:
  /// Fails the test, with the reason, when the server cannot be started.
  SoundServer();
  ~SoundServer();
  SoundServer(const SoundServer&) = delete;
  SoundServer& operator=(const SoundServer&) = delete;

  /// For the programs that shall find this server.
  const QProcessEnvironment& Environment() const { return environment_; }

  std::unique_ptr<SoundRecording> Record(const std::string& output);

  /// Adds a microphone, at first the default one, in a room without any sound.
  void PlugMicrophone(const std::string& name);

  /// Adds a microphone that never gives any sound, not even silence.
  void PlugDeadMicrophone(const std::string& name);

  /// Begins to play a WAV file in the room of a microphone.
  void PlayTo(const std::string& microphone, const std::string& file);

  /// An output or a microphone.
  void Unplug(const std::string& device);

  /// Lets the server do nothing any more, as one that hangs.
  void Hang();

  /// Ends the server without a word.
  void Kill();

 private:
  QByteArray Control(const QStringList& arguments);

  QProcess server_;
  QProcessEnvironment environment_;
  std::vector<std::unique_ptr<QProcess>> players_;
};

}  // namespace repvolta
