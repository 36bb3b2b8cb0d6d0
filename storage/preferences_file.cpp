#include "storage/preferences_file.h"

#include "storage/code_page.h"
#include "storage/file_io.h"

namespace quillet {

std::string FormatPreferences(const std::vector<PreferenceRecord>& records) {
  std::string out;
  for (const PreferenceRecord& r : records) out += Utf8ToCp1252(r.key) + "|" + Utf8ToCp1252(r.value) + "\r\n";
  return out;
}

std::vector<PreferenceLine> ParsePreferences(std::string_view bytes) {
  std::vector<PreferenceLine> lines;
  // An editor that saved the file as UTF-8 may have put a byte-order mark before the first key.
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  std::size_t start = bytes.substr(0, kByteOrderMark.size()) == kByteOrderMark ? kByteOrderMark.size() : 0;
  while (start < bytes.size()) {
    std::size_t end = bytes.find_first_of("\r\n", start);
    if (end == std::string_view::npos) end = bytes.size();
    const std::string_view line = bytes.substr(start, end - start);
    if (end == bytes.size()) {
      start = end;
    } else {
      const bool crLf = bytes[end] == '\r' && end + 1 < bytes.size() && bytes[end + 1] == '\n';
      start = end + (crLf ? 2 : 1);
    }
    if (line.empty()) continue;
    PreferenceLine parsed;
    const std::size_t bar = line.find('|');
    parsed.key = Cp1252ToUtf8(line.substr(0, bar));
    if (bar != std::string_view::npos) {
      const std::string_view rest = line.substr(bar + 1);
      parsed.value = Cp1252ToUtf8(rest.substr(0, rest.find('|')));
    }
    lines.push_back(std::move(parsed));
  }
  return lines;
}

std::optional<bool> ParseBooleanText(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  const auto equalsIgnoringCase = [&](std::string_view word) {
    if (text.size() != word.size()) return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
      char c = text[i];
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
      if (c != word[i]) return false;
    }
    return true;
  };
  if (equalsIgnoringCase("true")) return true;
  if (equalsIgnoringCase("false")) return false;
  return std::nullopt;
}

PreferencesFileContents ReadPreferencesFile(const std::filesystem::path& path) {
  PreferencesFileContents result;
  const FileRead file = ReadWholeFile(path, kLargestPreferencesFileBytes);
  switch (file.status) {
    case FileRead::Status::Missing:
      return result;
    case FileRead::Status::Failed:
      result.status = PreferencesFileContents::Status::Faulty;
      result.error =
          StorageError{"The preferences file \"" + path.string() + "\" cannot be read: " + file.reason +
                       ". The options start at their usual settings."};
      return result;
    case FileRead::Status::Read:
    case FileRead::Status::Stopped:  // not asked for: the whole file is read
      break;
  }
  result.status = PreferencesFileContents::Status::Read;
  result.lines = ParsePreferences(file.bytes);
  return result;
}

std::string PreferencesSaveFault(const std::filesystem::path& path, const std::string& why,
                                 bool fileWasThere) {
  return "The preferences could not be saved to \"" + path.string() + "\": " + why + ". " +
         (fileWasThere ? "The file there was left as it was."
                       : "There was no file there, and none was made.");
}

std::optional<StorageError> WritePreferencesFile(const std::filesystem::path& path,
                                                 const std::vector<PreferenceRecord>& records) {
  const bool fileWasThere = SomethingAt(path);
  if (auto failure = WriteFileAtomically(path, FormatPreferences(records)))
    return StorageError{PreferencesSaveFault(path, *failure, fileWasThere)};
  return std::nullopt;
}

}  // namespace quillet
