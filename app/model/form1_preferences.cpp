#include <span>

#include "app/model/form1_model.h"
#include "app/model/web_addresses.h"
#include "storage/code_page.h"
#include "storage/file_io.h"
#include "storage/file_lock.h"
#include "storage/preferences_file.h"

namespace quillet {
namespace {

constexpr std::string_view kWelcomeTitle = "Welcome to Poker Quillet!";
constexpr std::string_view kWelcomeText =
    "Welcome to Poker Quillet Hand Range Analyzer and Odds Calculator!\r\n\r\n"
    "If you are not already familiar with Poker Quillet, we recommend you check out the Online Poker Quillet "
    "Guide.\r\n\r\nWould you like to visit the Poker Quillet website now?";

// The seven menu ticks by key, in the order the file holds them.
struct MenuKey {
  const char* key;
  bool MenuOptions::*tick;
};
constexpr MenuKey kMenuKeys[] = {
    {"mnuHideEmptyCats", &MenuOptions::hideEmptyCats},
    {"mnuSimplifyOutput", &MenuOptions::simplifyOutput},
    {"mnuSimplifyFurther", &MenuOptions::simplifyFurther},
    {"mnuCategoryIcons", &MenuOptions::categoryIcons},
    {"mnuWinLoseIcons", &MenuOptions::winLoseIcons},
    {"mnuCalcEquityOnCook", &MenuOptions::calcEquityOnCook},
    {"mnuAutoPFEquityCalc", &MenuOptions::autoPFEquityCalc},
};

// Ticks added after the first twelve records: written after them, and only when they differ from their
// first-start value, so that the file of a user who never changes them stays as it always was.
constexpr MenuKey kLaterMenuKeys[] = {
    {"mnuStandardShowdownRules", &MenuOptions::standardShowdownRules},
    {"mnuCheckBoxes", &MenuOptions::checkBoxes},
    {"mnuEquityPerCategory", &MenuOptions::equityPerCategory},
    {"mnuEquityHeatMap", &MenuOptions::equityHeatMap},
};

void SetBoxText(RichTextState& box, const std::string& text) {
  box.text = text;
  box.charColours.assign(text.size(), kWindowTextColour);  // the start-up colouring of the card texts follows
  box.selStart = 0;
  box.selLength = 0;
}

}  // namespace

std::string Form1Model::SavedCardText(const std::string& text, std::size_t longest, std::string_view box) {
  const std::size_t length = text.size() <= longest ? text.size() : Utf8Length(text);
  if (length <= longest) return text;
  services.MsgBox(std::string(box) + " holds " + std::to_string(length) +
                      " characters; the preferences keep its first " + std::to_string(longest) + ".",
                  MessageIcon::Information);
  return Utf8Prefix(text, longest);
}

bool Form1Model::SavePreferences() {
  std::vector<PreferenceRecord> records;
  for (const MenuKey& m : kMenuKeys) records.push_back({m.key, BooleanText(options.*m.tick)});
  records.push_back({"txtMyHand", SavedCardText(txtMyHand.text, kLongestMyHandText, "My Hand")});
  records.push_back({"txtBoard", SavedCardText(txtBoard.text, kLongestBoardText, "The Board")});
  records.push_back({"ColourSchemeDefault", BooleanText(colourSchemeDefault)});
  records.push_back({"SelCardsAutoOK", BooleanText(selCardsAutoOK)});
  records.push_back({"SelCardsAutoCook", BooleanText(selCardsAutoCook)});
  for (const MenuKey& m : kLaterMenuKeys) {
    if (options.*m.tick != MenuOptions{}.*m.tick) records.push_back({m.key, BooleanText(options.*m.tick)});
  }
  // The multiway window's records: none until it has been used.
  for (PreferenceRecord& record : frmMultiway.PreferenceRecords()) records.push_back(std::move(record));
  // The boards report's place: none until it has been opened.
  for (PreferenceRecord& record : frmBoardsReport.PreferenceRecords()) records.push_back(std::move(record));
  if (auto failure = CreateFolderFor(preferencesPath)) {
    services.MsgBox(PreferencesSaveFault(preferencesPath, *failure, false), MessageIcon::Warning);
    return true;
  }
  for (;;) {
    const WriteLock lock(preferencesPath, profiles_.writeLockWait,
                         [this](std::chrono::milliseconds step) { services.Wait(step); });
    if (!lock.failure()) {
      if (auto error = WritePreferencesFile(preferencesPath, records))
        services.MsgBox(error->message, MessageIcon::Warning);
      return true;
    }
    if (!AskToRetryLockedSave(
            services, PreferencesSaveFault(preferencesPath, *lock.failure(), SomethingAt(preferencesPath))))
      return false;
  }
}

void Form1Model::LoadPreferences() {
  const PreferencesFileContents file = ReadPreferencesFile(preferencesPath);
  switch (file.status) {
    case PreferencesFileContents::Status::Missing:
      if (services.AskYesNo(kWelcomeTitle, kWelcomeText, MessageIcon::Information)) {
        services.OpenInShell(kOnlineGuideAddress);
      }
      return;
    case PreferencesFileContents::Status::Faulty:
      // Kept as a profile file is, before the close writes the preferences anew.
      services.MsgBox(file.error->message + "\r\n\r\n" + KeepUnreadableFileAside(preferencesPath, nullptr),
                      MessageIcon::Warning);
      return;
    case PreferencesFileContents::Status::Read:
      ApplyPreferences(file.lines);
      return;
  }
}

void Form1Model::ApplyPreferences(const std::vector<PreferenceLine>& lines) {
  for (const PreferenceLine& line : lines) {
    // A line without "|" carries no value; the program never writes one, and it is passed over.
    if (!line.value) continue;
    const std::string& value = *line.value;
    bool applied = false;
    for (const auto& keys : {std::span<const MenuKey>(kMenuKeys), std::span<const MenuKey>(kLaterMenuKeys)}) {
      for (const MenuKey& m : keys) {
        if (line.key != m.key) continue;
        if (const auto tick = ParseBooleanText(value)) options.*m.tick = *tick;
        applied = true;
        break;
      }
    }
    if (applied) continue;
    if (line.key == "txtMyHand") {
      SetBoxText(txtMyHand, Utf8Prefix(value, kLongestMyHandText));
    } else if (line.key == "txtBoard") {
      SetBoxText(txtBoard, Utf8Prefix(value, kLongestBoardText));
    } else if (line.key == "ColourSchemeDefault") {
      const auto isDefault = ParseBooleanText(value);
      if (!isDefault) continue;
      // The scheme is restored by switching, so that colours, caption and grid follow as they do on a click.
      if (!*isDefault) {
        colourSchemeDefault = true;
        mnuSwitchColourScheme_Click();
      } else if (!colourSchemeDefault) {
        mnuSwitchColourScheme_Click();  // a repeated key: the last value wins, the default scheme comes back
      }
    } else if (line.key == "SelCardsAutoOK") {
      if (const auto v = ParseBooleanText(value)) selCardsAutoOK = *v;
    } else if (line.key == "SelCardsAutoCook") {
      if (const auto v = ParseBooleanText(value)) selCardsAutoCook = *v;
    } else {
      // The multiway window's and the boards report's records; any other key is not the program's and is
      // passed over.
      if (!frmMultiway.ApplyPreference(line.key, value)) frmBoardsReport.ApplyPreference(line.key, value);
    }
  }
}

}  // namespace quillet
