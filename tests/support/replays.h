#pragma once
// Replay texts the tests share (Windows-1250 bytes, CR LF line ends), and a range of indexes.
#include <string>
#include <vector>

namespace trelvin::testing {

// The smallest complete replay: a 3 x 2 world, two players, a purchase and an attack. With the
// inserted start and end it has 7 events.
inline const std::string kAlfa =
    "0;Alfa;2;3;2;3\r\n"
    "2004-06-19-08-00-00;create_world;NNBSXN\r\n"
    "2004-06-19-08-10-00;create_hq;Karel;les;A0\r\n"
    "2004-06-19-08-20-30;create_hq;Jana;louka;C1\r\n"
    "2004-06-19-09-05-00;buy;A0;Vosi\xE8ka;4\r\n"
    "2004-06-19-09-40-00;attack;A0;B0;4;1;3\r\n";

// Events: 1 create_world, 2 and 3 create_hq, 4 start, 5 a move off the map (fails),
// 6 the attack that takes Jana's headquarters, 7 the end.
inline const std::string kCapture =
    "0;Dobyti;2;2;1;3\r\n"
    "2004-06-19-08-00-00;create_world;NN\r\n"
    "2004-06-19-08-10-00;create_hq;Karel;les;A0\r\n"
    "2004-06-19-08-20-00;create_hq;Jana;louka;B0\r\n"
    "2004-06-19-08-25-00;move;A0;Z9;1\r\n"
    "2004-06-19-08-30-00;attack;A0;B0;1;1;1\r\n";

// A world of plain fields only.
inline std::string BlankWorld(int columns, int rows) {
    return "0;Prazdny;2;" + std::to_string(columns) + ";" + std::to_string(rows) + ";3\r\n" +
           "2004-06-19-08-00-00;create_world;" + std::string(std::size_t(rows * columns), 'N') + "\r\n";
}

// `count` events: the world, then lines without a rule, all within one hour.
inline std::string PlainReplay(int count) {
    std::string text = "0;Rada;9;3;2;3\r\n2004-06-19-08-00-00;create_world;NNNNNN\r\n";
    for (int i = 2; i <= count; ++i)
        text += "2004-06-19-08-" + std::string(i < 10 ? "0" : "") + std::to_string(i) + "-00;fly\r\n";
    return text;
}

inline std::vector<int> Range(int first, int last) {
    std::vector<int> result;
    for (int i = first; i <= last; ++i) result.push_back(i);
    return result;
}

}  // namespace trelvin::testing
