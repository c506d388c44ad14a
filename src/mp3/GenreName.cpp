#include "mp3/GenreName.h"

#include <array>
#include <string_view>

namespace repvolta {
namespace {

// Twenty names differ in form from the usual list (quirk 74), and 123 has none (quirk 75).
constexpr std::array<std::string_view, 148> kGenres{
    // 0
    "Blues", "Classic Rock", "Country", "Dance", "Disco", "Funk", "Grunge", "Hip Hop", "Jazz",
    "Metal",
    // 10
    "New Age", "Oldies", "Other", "Pop", "R&B", "Rap", "Reggae", "Rock", "Techno", "Industrial",
    // 20
    "Alternative", "Ska", "Death Metal", "Pranks", "Soundtrack", "Euro - Techno", "Ambient",
    "Trip Hop", "Vocal", "Jazz - Funk",
    // 30
    "Fusion", "Trance", "Classical", "Instrumental", "Acid", "House", "Game", "Sound Clip",
    "Gospel", "Noise",
    // 40
    "Alt.Rock", "Bass", "Soul", "Punk", "Space", "Meditative", "Instrumental Pop",
    "Instrumental Rock", "Ethnic", "Gothic",
    // 50
    "Darkwave", "Techno - Industrial", "Electronic", "Pop / Folk", "Eurodance", "Dream",
    "Southern Rock", "Comedy", "Cult", "Gangsta Rap",
    // 60
    "Top 40", "Christian Rap", "Pop / Funk", "Jungle", "Native American", "Cabaret", "New Wave",
    "Psychedelic", "Rave", "Showtunes",
    // 70
    "Trailer", "Lo - fi", "Tribal", "Acid Punk", "Acid Jazz", "Polka", "Retro", "Musical",
    "Rock 'n'Roll", "Hard Rock",
    // 80
    "Folk", "Folk / Rock", "National Folk", "Swing", "Fast Fusion", "Bebop", "Latin", "Revival",
    "Celtic", "Blue Grass",
    // 90
    "Avant Garde", "Gothic Rock", "Progressive Rock", "Psychedelic Rock", "Symphonic Rock",
    "Slow Rock", "Big Band", "Chorus", "Easy Listening", "Acoustic",
    // 100
    "Humour", "Speech", "Chanson", "Opera", "Chamber Music", "Sonata", "Symphony", "Booty Bass",
    "Primus", "Pr0n Groove",
    // 110
    "Satire", "Slow Jam", "Club", "Tango", "Samba", "Folklore", "Ballad", "Power Ballad",
    "Rhythmic Soul", "Freestyle",
    // 120
    "Duet", "Punk Rock", "Drum Solo", "", "Euro - House", "Dance Hall", "Goa", "Drum & Bass",
    "Club - House", "Hardcore",
    // 130
    "Terror", "Indie", "Brit Pop", "Afro-Punk", "Polsk Punk", "Beat", "Christian Gangsta Rap",
    "Heavy Metal", "Black Metal", "Crossover",
    // 140
    "Contemporary Christian", "Christian Rock", "Merengue", "Salsa", "Thrash Metal", "Anime",
    "JPop", "Synth Pop"};

}  // namespace

std::string GenreName(Byte number) {
  return number < kGenres.size() ? std::string(kGenres[number]) : std::string();
}

}  // namespace repvolta
