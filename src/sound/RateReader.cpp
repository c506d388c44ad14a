#include "sound/RateReader.h"

#include <algorithm>
#include <cmath>
#include <soxr.h>
#include <stdexcept>
#include <string>

namespace repvolta {
namespace {

constexpr std::size_t kBlock = 8192;  // samples

std::size_t SizeAt(const SoundSource& source, std::uint32_t rate) {
  if (source.Rate() == rate) return source.Size();
  const double ratio = static_cast<double>(rate) / source.Rate();
  return static_cast<std::size_t>(std::llround(static_cast<double>(source.Size()) * ratio));
}

void Check(soxr_error_t error) {
  if (error != nullptr) throw std::runtime_error(std::string("sample rate conversion: ") + error);
}

}  // namespace

void RateReader::Closer::operator()(soxr* state) const { soxr_delete(state); }

RateReader::RateReader(const SoundSource& source, std::uint32_t rate)
    : source_(source), size_(SizeAt(source, rate)), left_(size_), in_(kBlock) {
  if (source.Rate() == rate) return;
  out_.resize(kBlock);
  const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_HQ, 0);
  soxr_error_t error = nullptr;
  state_.reset(soxr_create(source.Rate(), rate, 1, &error, nullptr, &quality, nullptr));
  Check(error);
}

std::span<const float> RateReader::Next() {
  if (left_ == 0) return {};
  return state_ ? Converted() : Unchanged();
}

std::span<const float> RateReader::Unchanged() {
  ReadBlock();
  left_ -= pending_.size();
  return pending_;
}

std::span<const float> RateReader::Converted() {
  while (true) {
    if (pending_.empty()) ReadBlock();
    const bool atEnd = pending_.empty();
    std::size_t taken = 0;
    std::size_t made = 0;
    Check(soxr_process(state_.get(), atEnd ? nullptr : pending_.data(), pending_.size(), &taken,
                       out_.data(), out_.size(), &made));
    pending_ = pending_.subspan(taken);
    if (made > 0) return Give(made);
    if (!atEnd) continue;
    // The converter may be short of a last sample.
    std::ranges::fill(out_, 0.0F);
    return Give(out_.size());
  }
}

void RateReader::ReadBlock() {
  const std::size_t count = std::min(in_.size(), source_.Size() - position_);
  source_.Read(position_, std::span(in_).first(count));
  position_ += count;
  pending_ = std::span(in_).first(count);
}

std::span<const float> RateReader::Give(std::size_t count) {
  const std::span<const float> given = std::span(out_).first(std::min(count, left_));
  left_ -= given.size();
  return given;
}

}  // namespace repvolta
