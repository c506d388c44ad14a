#include "app/UpdateDays.h"

#include "app/Options.h"

namespace repvolta {

UpdateDays ChosenUpdateDays(const OptionLines& options) {
  UpdateDays days;
  for (std::size_t i = 0; i < days.size(); ++i) days[i] = Get(options, kUpdatesOn.at(i));
  return days.none() ? kDaily : days;
}

void PutUpdateDays(OptionLines& options, const UpdateDays& days) {
  for (std::size_t i = 0; i < days.size(); ++i) {
    const bool named = days[i] && days != kDaily;
    if (named != Get(options, kUpdatesOn.at(i))) Put(options, kUpdatesOn.at(i), named);
  }
}

}  // namespace repvolta
