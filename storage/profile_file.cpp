#include "storage/profile_file.h"

#include <algorithm>
#include <vector>

#include "cards/hand_class.h"
#include "cards/terminal_text.h"
#include "storage/byte_io.h"
#include "storage/code_page.h"
#include "storage/file_io.h"
#include "storage/profile_weights_file.h"

namespace quillet {
namespace {

constexpr int16_t kDescriptorDimensions = 1;
constexpr int32_t kDescriptorElements = kSuitPairSlots;
constexpr int32_t kDescriptorLowerBound = 0;

// A name from the file as it may be shown in a one-line message: no control characters, not too long.
std::string Printable(std::string_view cp1252) {
  std::string shown;
  for (const char c : cp1252.substr(0, 40)) {
    const auto b = static_cast<unsigned char>(c);
    shown.push_back(b < 0x20 || b == 0x7F || (b >= 0x80 && b < 0xA0) ? '?' : c);
  }
  return Cp1252ToUtf8(shown) + (cp1252.size() > 40 ? "..." : "");
}

struct BlockFault {
  bool truncated = false;
  std::string why;  // empty: the block was read whole
};

class ProfileBlockReader {
 public:
  ProfileBlockReader(ByteReader& in, int number, int32_t total) : in_(in), number_(number), total_(total) {}

  BlockFault Read(PlayerProfile& profile) {
    std::string name;
    if (auto f = ReadCountedString("name", kLongestStoredName, name); !f.why.empty()) return f;
    nameShown_ = Printable(name);
    profile.name = Cp1252ToUtf8(name);
    std::string text;
    if (auto f = ReadCountedString("range text", kLongestStoredRangeText, text); !f.why.empty()) return f;
    profile.rangeText = Cp1252ToUtf8(text);
    const auto& classes = HandClasses();
    for (int c = 0; c < kClassCount; ++c) {
      if (auto f = ReadRecord(profile.rangeLayer[c], classes[c], "On"); !f.why.empty()) return f;
      if (auto f = ReadRecord(profile.seenLayer[c], classes[c], "Seen"); !f.why.empty()) return f;
    }
    return {};
  }

 private:
  std::string Which() const {
    std::string which = "profile " + std::to_string(number_) + " of " + std::to_string(total_);
    if (!nameShown_.empty()) which += " (\"" + nameShown_ + "\")";
    return which;
  }

  BlockFault Truncated() const {
    return {true,
            "it ends after " + std::to_string(in_.offset() + in_.remaining()) + " bytes, inside " + Which()};
  }

  BlockFault ReadCountedString(const char* what, std::size_t longest, std::string& out) {
    int32_t length = 0;
    if (!in_.I32(length)) return Truncated();
    if (length < 0) {
      return {false,
              "the " + std::string(what) + " of " + Which() + " has a length of " + std::to_string(length)};
    }
    if (static_cast<std::size_t>(length) > in_.remaining()) {
      return {true, "the " + std::string(what) + " of " + Which() + " is said to be " +
                        std::to_string(length) + " bytes long, but only " + std::to_string(in_.remaining()) +
                        " bytes follow"};
    }
    if (static_cast<std::size_t>(length) > longest) {
      return {false, "the " + std::string(what) + " of " + Which() + " is " + std::to_string(length) +
                         " bytes long, more than the " + std::to_string(longest) + " bytes a " + what +
                         " may have"};
    }
    std::string_view bytes;
    in_.Bytes(static_cast<std::size_t>(length), bytes);
    out.assign(bytes);
    return {};
  }

  BlockFault ReadRecord(BlockRecord& record, const HandClass& handClass, const char* layer) {
    if (in_.remaining() < kRecordBlockBytes) return Truncated();
    const auto where = [&] { return Which() + ", " + handClass.caption + " in the " + layer + " layer, "; };
    std::string_view block;
    in_.Bytes(kRecordBlockBytes, block);
    const char* p = block.data();
    record.rank1 = LoadI32(p);
    record.rank2 = LoadI32(p + 4);
    const int16_t dimensions = LoadI16(p + 8);
    const int32_t elements = LoadI32(p + 10);
    const int32_t lowerBound = LoadI32(p + 14);
    for (int k = 0; k < kSuitPairSlots; ++k) {
      const char* entry = p + 18 + 10 * k;
      record.combos[k].on = LoadI16(entry);
      record.combos[k].suit1 = LoadI32(entry + 2);
      record.combos[k].suit2 = LoadI32(entry + 6);
    }
    record.count = LoadI32(p + 178);
    record.suited = LoadI16(p + 182);
    record.offsuit = LoadI16(p + 184);
    record.whole = LoadI16(p + 186);
    if (dimensions != kDescriptorDimensions || elements != kDescriptorElements ||
        lowerBound != kDescriptorLowerBound) {
      return {false, where() + "describes its suit-pair list as (" + std::to_string(dimensions) + ", " +
                         std::to_string(elements) + ", " + std::to_string(lowerBound) +
                         ") instead of (1, 16, 0)"};
    }
    if (record.count < 0 || record.count > kSuitPairSlots) {
      return {false,
              where() + "holds " + std::to_string(record.count) + " suit pairs (0 to 16 are possible)"};
    }
    if (record.rank1 != handClass.rank1 || record.rank2 != handClass.rank2) {
      return {false, where() + "has the ranks " + std::to_string(record.rank1) + " and " +
                         std::to_string(record.rank2) + " instead of " + std::to_string(handClass.rank1) +
                         " and " + std::to_string(handClass.rank2)};
    }
    for (int k = 0; k < record.count; ++k) {
      const SuitPairEntry& e = record.combos[k];
      if (e.suit1 < 0 || e.suit1 > 3 || e.suit2 < 0 || e.suit2 > 3) {
        return {false, where() + "suit pair " + std::to_string(k + 1) + " has the suits " +
                           std::to_string(e.suit1) + " and " + std::to_string(e.suit2) +
                           " (0 to 3 are possible)"};
      }
    }
    return {};
  }

  ByteReader& in_;
  int number_;
  int32_t total_;
  std::string nameShown_;
};

// The fault of a file longer than the profiles it holds fill.
std::string LongerThanItsProfiles(std::uint64_t size, int32_t count, std::uint64_t filled) {
  return "it is " + std::to_string(size) + " bytes long, but the " +
         (count == 1 ? std::string("1 profile it holds fills")
                     : std::to_string(count) + " profiles it holds fill") +
         " only " + std::to_string(filled);
}

// The length the file's head and the lengths at the head of each profile block make: 8 bytes, then for
// each profile its two counted strings and 338 record blocks. Reads only the length fields (and skips the
// rest). nullopt when a length is out of bounds or the file ends before the profiles do: the whole reading
// then names the fault.
std::optional<std::uint64_t> LengthTheProfilesFill(int32_t count, std::uint64_t size, const ReadAt& readAt) {
  std::uint64_t at = 8;
  for (int32_t i = 0; i < count; ++i) {
    for (const std::size_t longest : {kLongestStoredName, kLongestStoredRangeText}) {
      char field[4];
      if (at + 4 > size || readAt(at, field, 4) != 4) return std::nullopt;
      const int32_t length = LoadI32(field);
      if (length < 0 || static_cast<std::size_t>(length) > longest) return std::nullopt;
      at += 4 + static_cast<std::uint64_t>(length);
    }
    at += 2 * kClassCount * kRecordBlockBytes;
    if (at > size) return std::nullopt;
  }
  return at;
}

}  // namespace

std::string ProfileFileFault(const std::string& fileLabel, const std::string& why) {
  return "The player profile file \"" + fileLabel + "\" cannot be read: " + why + ".";
}

void AppendRecordBlock(std::string& out, const BlockRecord& record) {
  const std::size_t at = out.size();
  out.resize(at + kRecordBlockBytes);
  char* p = out.data() + at;
  StoreI32(p, record.rank1);
  StoreI32(p + 4, record.rank2);
  StoreI16(p + 8, kDescriptorDimensions);
  StoreI32(p + 10, kDescriptorElements);
  StoreI32(p + 14, kDescriptorLowerBound);
  for (int k = 0; k < kSuitPairSlots; ++k) {
    char* entry = p + 18 + 10 * k;
    StoreI16(entry, record.combos[k].on);
    StoreI32(entry + 2, record.combos[k].suit1);
    StoreI32(entry + 6, record.combos[k].suit2);
  }
  StoreI32(p + 178, record.count);
  StoreI16(p + 182, record.suited);
  StoreI16(p + 184, record.offsuit);
  StoreI16(p + 186, record.whole);
}

std::string EncodeProfileFile(const std::vector<PlayerProfile>& profiles) {
  struct Texts {
    const PlayerProfile* profile;
    std::string name, rangeText;  // in the code page
  };
  std::vector<Texts> named;
  std::size_t size = 8;
  for (const PlayerProfile& p : profiles) {
    if (p.isFree()) continue;
    named.push_back({&p, Utf8ToCp1252(p.name), Utf8ToCp1252(p.rangeText)});
    size += kSmallestProfileBlockBytes + named.back().name.size() + named.back().rangeText.size();
  }
  std::string out;
  out.reserve(size);
  ByteWriter w(out);
  w.I32(kProfileFileVersion);
  w.I32(static_cast<int32_t>(named.size()));
  for (const Texts& t : named) {
    w.I32(static_cast<int32_t>(t.name.size()));
    w.Bytes(t.name);
    w.I32(static_cast<int32_t>(t.rangeText.size()));
    w.Bytes(t.rangeText);
    for (int c = 0; c < kClassCount; ++c) {
      AppendRecordBlock(out, t.profile->rangeLayer[c]);
      AppendRecordBlock(out, t.profile->seenLayer[c]);
    }
  }
  return out;
}

ProfileFileContents DecodeProfileFile(std::string_view bytes, const std::string& fileLabel) {
  ProfileFileContents result;
  const auto fault = [&](const std::string& why) {
    result.status = ProfileFileContents::Status::Faulty;
    result.error = StorageError{ProfileFileFault(fileLabel, why)};
    return std::move(result);
  };
  if (bytes.empty()) return fault("it is empty");
  ByteReader in(bytes);
  if (!in.I32(result.version)) {
    return fault("it is only " + std::to_string(bytes.size()) +
                 " bytes long, too short for the file version");
  }
  if (result.version != kProfileFileVersion) {
    result.status = ProfileFileContents::Status::OtherVersion;
    return result;
  }
  int32_t count = 0;
  if (!in.I32(count))
    return fault("it ends after " + std::to_string(bytes.size()) + " bytes, inside the profile count");
  if (count < 0) return fault("it says it holds " + std::to_string(count) + " profiles");
  // However large the count, the list grows only by profiles actually read.
  const std::size_t room = in.remaining() / kSmallestProfileBlockBytes;
  result.profiles.reserve(std::min(static_cast<std::size_t>(count), room));
  for (int32_t i = 0; i < count; ++i) {
    PlayerProfile profile;
    InitProfile(profile);
    ProfileBlockReader reader(in, i + 1, count);
    const BlockFault f = reader.Read(profile);
    if (!f.why.empty()) {
      // A file cut short lacks part of one profile; a count beyond that is wrong itself.
      if (f.truncated && static_cast<std::size_t>(count) > room + 1) {
        return fault("it says it holds " + std::to_string(count) + " profiles, but its " +
                     std::to_string(bytes.size()) + " bytes have room for at most " + std::to_string(room));
      }
      return fault(f.why);
    }
    result.profiles.push_back(std::move(profile));
  }
  // The profiles end where the file must: a real file never goes on after them.
  if (in.remaining() > 0) return fault(LongerThanItsProfiles(bytes.size(), count, in.offset()));
  result.status = ProfileFileContents::Status::Read;
  return result;
}

ProfileFileContents ReadProfileFile(const std::filesystem::path& path) {
  // The head (version and count) and the lengths in each profile block are judged before the rest is read:
  // a file of another version, one whose count its length cannot hold, and one longer than its profiles
  // fill are refused at the cost of those few bytes, however long the file is.
  ProfileFileContents refused;
  const auto readOn = [&](std::string_view head, std::uint64_t size, const ReadAt& readAt) {
    if (head.size() < 8) return true;  // too short for a count: the whole reading says what is wrong
    refused.version = LoadI32(head.data());
    if (refused.version != kProfileFileVersion) {
      refused.status = ProfileFileContents::Status::OtherVersion;
      return false;
    }
    const int32_t count = LoadI32(head.data() + 4);
    const std::uint64_t room = (size - 8) / kSmallestProfileBlockBytes;
    refused.status = ProfileFileContents::Status::Faulty;
    if (count >= 0 && static_cast<std::uint64_t>(count) <= room + 1) {
      // A file shorter than its lengths say, or with a length out of bounds, is read: the reading keeps
      // the profiles before the fault and names it.
      const auto filled = LengthTheProfilesFill(count, size, readAt);
      if (!filled || *filled >= size) return true;
      refused.error =
          StorageError{ProfileFileFault(path.string(), LongerThanItsProfiles(size, count, *filled))};
      return false;
    }
    refused.error = StorageError{ProfileFileFault(
        path.string(), count < 0 ? "it says it holds " + std::to_string(count) + " profiles"
                                 : "it says it holds " + std::to_string(count) + " profiles, but its " +
                                       std::to_string(size) + " bytes have room for at most " +
                                       std::to_string(room))};
    return false;
  };
  FileRead file = ReadWholeFile(path, kLargestProfileFileBytes, 8, readOn);
  switch (file.status) {
    case FileRead::Status::Missing:
      return {};
    case FileRead::Status::Stopped:
      return refused;
    case FileRead::Status::Failed: {
      ProfileFileContents result;
      result.status = ProfileFileContents::Status::Faulty;
      result.error = StorageError{ProfileFileFault(path.string(), file.reason)};
      return result;
    }
    case FileRead::Status::Read:
      break;
  }
  ProfileFileContents result = DecodeProfileFile(file.bytes, path.string());
  if (result.status == ProfileFileContents::Status::Faulty) result.bytes = std::move(file.bytes);
  if (!result.profiles.empty()) {
    ProfileWeightsRead weights = ReadProfileWeights(path, result.profiles);
    result.weightsError = std::move(weights.error);
    result.weightsBytes = std::move(weights.bytes);
  }
  return result;
}

std::string ProfileSaveFault(const std::filesystem::path& path, const std::string& why, bool fileWasThere) {
  return "The player profiles could not be saved to \"" + path.string() + "\": " + why + ". " +
         (fileWasThere ? "The file there was left as it was."
                       : "There was no file there, and none was made.");
}

std::optional<StorageError> WriteProfileFile(const std::filesystem::path& path,
                                             const std::vector<PlayerProfile>& profiles) {
  const bool fileWasThere = SomethingAt(path);
  // Nothing is written that the reader would refuse: the file there stays readable.
  for (const PlayerProfile& p : profiles) {
    if (p.isFree()) continue;
    const std::size_t textBytes = Utf8ToCp1252(p.rangeText).size();
    if (Utf8ToCp1252(p.name).size() > kLongestStoredName || textBytes > kLongestStoredRangeText) {
      return StorageError{
          ProfileSaveFault(path,
                           textBytes > kLongestStoredRangeText
                               ? "the range text of the profile \"" + EscapeControlCharacters(p.name) +
                                     "\" is " + std::to_string(textBytes) + " bytes long, more than the " +
                                     std::to_string(kLongestStoredRangeText) + " bytes a range text may have"
                               : "the profile name \"" + EscapeControlCharacters(p.name) +
                                     "\" is longer than " + std::to_string(kLongestStoredName) + " bytes",
                           fileWasThere)};
    }
  }
  const std::string bytes = EncodeProfileFile(profiles);
  if (bytes.size() > kLargestProfileFileBytes) {
    return StorageError{
        ProfileSaveFault(path,
                         "the profiles take " + std::to_string(bytes.size()) + " bytes, more than the " +
                             std::to_string(kLargestProfileFileBytes) + " bytes such a file can hold",
                         fileWasThere)};
  }
  if (auto failure = WriteFileAtomically(path, bytes))
    return StorageError{ProfileSaveFault(path, *failure, fileWasThere)};
  return WriteProfileWeights(path, profiles);
}

}  // namespace quillet
