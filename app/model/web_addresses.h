// The web pages the program opens in the user's browser: the online guide (the help label, the first-run
// welcome) and the maker's home page (the website label). One place to change them.
#pragma once

#include <string_view>

namespace quillet {

inline constexpr std::string_view kMakerSiteAddress = "https://www.pokerquillet.com/";
inline constexpr std::string_view kOnlineGuideAddress =
    "https://www.pokerquillet.com/free_online_poker_quillet_guide.php";
inline constexpr std::string_view kHomePageAddress = kMakerSiteAddress;

}  // namespace quillet
