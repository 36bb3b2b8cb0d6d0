#include "cards/preflop_order.h"

#include "cards/hand_class.h"

namespace quillet {

std::vector<PreflopRow> InitPreflopOrder() {
  // Row 75 carries 48.1 where its cumulative share would round to 48.6; the value is kept as listed.
  return {
    {0.5, "AA"},
    {1.4, "KK,QQ"},
    {1.8, "JJ"},
    {2.6, "TT,AKs"},
    {3.0, "99"},
    {3.3, "AQs"},
    {4.2, "AK"},
    {4.8, "KQs,AJs"},
    {5.6, "ATs,88"},
    {6.5, "AQ"},
    {6.8, "KJs"},
    {7.4, "QJs,KTs"},
    {8.3, "AJ"},
    {9.2, "KQ"},
    {9.8, "QTs,A9s"},
    {10.3, "77"},
    {11.2, "AT"},
    {11.5, "JTs"},
    {12.4, "KJ"},
    {12.7, "A8s"},
    {13.0, "K9s"},
    {13.9, "QJ"},
    {14.2, "A7s"},
    {15.1, "KT"},
    {15.4, "Q9s"},
    {16.1, "A5s,66"},
    {16.4, "A6s"},
    {17.3, "QT"},
    {17.6, "J9s"},
    {18.6, "A9"},
    {18.9, "T9s"},
    {19.5, "K8s,A4s"},
    {20.4, "JT"},
    {20.7, "K7s"},
    {21.6, "A8"},
    {21.9, "A3s"},
    {22.2, "Q8s"},
    {23.1, "K9"},
    {23.7, "K6s,A2s"},
    {24.3, "J8s,T8s"},
    {25.2, "A7"},
    {25.6, "55"},
    {26.5, "Q9"},
    {26.8, "98s"},
    {27.5, "Q7s,K5s"},
    {28.4, "J9"},
    {29.3, "A5"},
    {30.2, "T9"},
    {31.1, "A6"},
    {31.4, "K4s"},
    {32.3, "K8"},
    {32.9, "J7s,Q6s"},
    {34.1, "T7s,A4"},
    {34.4, "97s"},
    {35.0, "87s,K3s"},
    {35.3, "Q5s"},
    {36.2, "K7"},
    {36.7, "44"},
    {37.6, "Q8"},
    {38.5, "A3"},
    {38.8, "K2s"},
    {39.7, "J8"},
    {40.0, "Q4s"},
    {40.9, "T8"},
    {41.2, "J6s"},
    {42.1, "K6"},
    {43.0, "A2"},
    {43.3, "T6s"},
    {44.2, "98"},
    {44.8, "86s,76s"},
    {45.4, "96s,Q3s"},
    {45.7, "J5s"},
    {46.6, "K5"},
    {47.5, "Q7"},
    {47.8, "Q2s"},
    {48.1, "33,J4s"},
    {48.9, "65s"},
    {49.8, "J7"},
    {50.7, "T7"},
    {51.6, "K4"},
    {52.2, "T5s,75s"},
    {53.1, "Q6"},
    {53.4, "J3s"},
    {53.7, "95s"},
    {54.6, "87"},
    {54.9, "85s"},
    {55.8, "97"},
    {56.1, "T4s"},
    {57.0, "K3"},
    {57.6, "J2s,54s"},
    {58.5, "Q5"},
    {58.8, "64s"},
    {59.6, "T3s,22"},
    {60.5, "K2"},
    {60.8, "74s"},
    {61.7, "76"},
    {62.0, "T2s"},
    {62.9, "Q4"},
    {63.8, "J6"},
    {64.1, "84s"},
    {64.4, "94s"},
    {65.3, "86"},
    {66.2, "T6"},
    {67.4, "96,53s"},
    {67.7, "93s"},
    {68.6, "Q3"},
    {69.5, "J5"},
    {69.8, "63s"},
    {70.4, "92s,43s"},
    {70.7, "73s"},
    {71.6, "65"},
    {72.5, "Q2"},
    {73.5, "J4"},
    {73.8, "83s"},
    {74.7, "75"},
    {75.0, "52s"},
    {75.9, "85"},
    {76.2, "82s"},
    {77.1, "T5"},
    {78.0, "95"},
    {78.9, "J3"},
    {79.2, "62s"},
    {80.1, "54"},
    {80.4, "42s"},
    {81.3, "T4"},
    {82.2, "J2"},
    {82.5, "72s"},
    {83.4, "64"},
    {84.3, "T3"},
    {84.6, "32s"},
    {85.5, "74"},
    {86.4, "84"},
    {87.3, "T2"},
    {88.2, "94"},
    {89.1, "53"},
    {90.0, "93"},
    {91.0, "63"},
    {91.9, "43"},
    {92.8, "92"},
    {93.7, "73"},
    {94.6, "83"},
    {95.5, "52"},
    {96.4, "82"},
    {97.3, "42"},
    {98.2, "62"},
    {99.1, "72"},
    {100.0, "32"},
  };
}

const std::vector<PreflopRow>& PreflopOrder() {
  static const std::vector<PreflopRow> order = InitPreflopOrder();
  return order;
}

std::vector<std::string> SplitClassList(std::string_view text) {
  std::vector<std::string> names;
  std::size_t start = 0;
  while (true) {
    const std::size_t comma = text.find(',', start);
    names.emplace_back(text.substr(start, comma == std::string_view::npos ? std::string_view::npos : comma - start));
    if (comma == std::string_view::npos) break;
    start = comma + 1;
  }
  return names;
}

std::vector<std::vector<HandCombo>> BuildPreflopRangeLists(const std::vector<PreflopRow>& order) {
  std::vector<std::vector<HandCombo>> lists(order.size());
  std::vector<HandCombo> running;
  for (std::size_t k = 0; k < order.size(); ++k) {
    for (const std::string& name : SplitClassList(order[k].classes)) {
      const auto combos = ExpandClassName(name);
      running.insert(running.end(), combos.begin(), combos.end());
    }
    lists[k] = running;
  }
  return lists;
}

const std::vector<std::vector<HandCombo>>& PreflopRangeLists() {
  static const std::vector<std::vector<HandCombo>> lists = BuildPreflopRangeLists(PreflopOrder());
  return lists;
}

}  // namespace quillet
