#include "tests/reference/literal_sequence.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <map>
#include <regex>
#include <set>

namespace {

using Strings = std::vector<std::string>;

// Numbers are texts of one length, with 300 digits on both sides of the point, that compare as they
// do.
std::string Value(const std::string& sign, const std::string& whole,
                  const std::string& fraction = "", int exponent = 0) {
  std::string digits = std::string(300 - whole.size(), '0') + whole + fraction;
  digits.resize(600, '0');
  std::rotate(digits.begin(), digits.begin() + (exponent + 600) % 600, digits.end());
  const bool isNegative = sign == "-" && digits.find_first_not_of('0') != std::string::npos;
  for (char& c : digits) {
    c = isNegative ? static_cast<char>('0' + '9' - c) : c;
  }
  return (isNegative ? "-" : "1") + digits;
}

long long Billionths(const std::string& value) {
  const long long digits =
      std::stoll((value[0] == '-' ? "0" : "") +
                 value.substr(value[0] == '-' ? 293 : 291, value[0] == '-' ? 17 : 19));
  return value[0] == '-' ? digits - 99'999'999'999'999'999 : digits;
}

struct Token {
  std::size_t begin, end;
  std::string sign, whole, fraction, power;
  char mark = 0;
  bool isClock = false;
};

struct Name {
  std::string text, stem, pattern;
  std::vector<Token> tokens;
};

std::string Days(const std::string& year, const std::string& month, const std::string& day) {
  using namespace std::chrono;
  const year_month_day date{std::chrono::year(std::stoi(year)),
                            std::chrono::month(static_cast<unsigned>(std::stoi(month))),
                            std::chrono::day(static_cast<unsigned>(std::stoi(day)))};
  const bool isDay = date.ok() && year >= "1900" && year < "2100";
  return isDay ? std::to_string((sys_days(date) - sys_days(1900y / 1 / 1)).count()) : "";
}

std::regex Pattern(const std::string& text) {
  return std::regex(text, std::regex::icase);
}

const std::regex kDigitsDate = Pattern(R"((\d{4})(\d\d)(\d\d)(?!\d))");
const std::regex kYearFirst = Pattern(R"((\d{4})([-._])(\d\d?)\2(\d\d?)(?!\d))");
const std::regex kTwelve =
    Pattern(R"((\d\d?)(?:([.:_-])([0-5]\d)(?:\2([0-5]\d))?)?(?: | )?([ap]m)(?![a-z]))");
const std::regex kChain = Pattern(R"(\d+([.,]\d+)*)");
const std::regex kPower = Pattern(R"(e([+-]\d{1,3}|\d{1,3}(?![a-z]))(?!\d|[.,]\d))");

bool IsMatch(std::smatch& m, const std::string& text, std::size_t at, const std::regex& pattern) {
  return std::regex_search(text.begin() + static_cast<long>(at), text.end(), m, pattern,
                           std::regex_constants::match_continuous);
}

// Where the reading of a name goes on behind what was taken from it at `at`.
std::size_t Cut(Name& name, std::size_t at) {
  const std::string& s = name.stem;
  std::smatch m;
  const auto add = [&](std::size_t begin, std::size_t size) {
    name.tokens.push_back({begin, begin + size, "", s.substr(begin, size), "", "", 0, false});
    name.pattern += '/';
  };
  if (IsMatch(m, s, at, kDigitsDate) && !Days(m[1], m[2], m[3]).empty()) {
    add(at, 8);
    return at + 8;
  }
  if (IsMatch(m, s, at, kYearFirst) && !Days(m[1], m[3], m[4]).empty()) {
    for (const std::size_t group : {1U, 3U, 4U}) {
      name.pattern += group == 1 ? "" : m[2].str();
      add(at + static_cast<std::size_t>(m.position(group)), m[group].str().size());
    }
    return at + m[0].str().size();
  }
  const bool isAfterLetter = at > 0 && std::isalpha(static_cast<unsigned char>(s[at - 1])) != 0;
  if (IsMatch(m, s, at, kTwelve) && std::stoi(m[1]) >= 1 && std::stoi(m[1]) <= 12 &&
      (m[3].matched || !isAfterLetter)) {
    name.tokens.push_back({at, at + m[0].str().size(), "", "", "", "", 0, true});
    name.pattern += "//";
    return name.tokens.back().end;
  }
  IsMatch(m, s, at, kChain);
  const std::string chain = m[0];
  const std::size_t count =
      1 + static_cast<std::size_t>(std::count_if(chain.begin(), chain.end(), ispunct));
  static const std::regex kPairs(R"(\d+\.\d+(,\d+\.\d+)*|\d+,\d+(\.\d+,\d+)*)");
  static const std::regex kDecimal(R"((\d+)([.,])(\d+))");
  static const std::regex kWhole(R"((\d+))");
  const bool isPairs = std::regex_match(chain, kPairs);
  const bool hasSign = at > 0 && (s[at - 1] == '-' || s[at - 1] == '+') &&
                       (at == 1 || std::string("_=([ ").find(s[at - 2]) != std::string::npos);
  const std::string sign = hasSign ? s.substr(at - 1, 1) : "";
  if (!sign.empty()) {
    name.pattern.pop_back();
  }
  const std::regex& number = isPairs ? kDecimal : kWhole;
  for (std::sregex_iterator n(chain.begin(), chain.end(), number), end; n != end; ++n) {
    const std::size_t begin = at + static_cast<std::size_t>(n->position());
    const bool isFirst = n->position() == 0;
    name.pattern += isFirst ? "" : s.substr(begin - 1, 1);
    add(begin, n->str().size());
    Token& token = name.tokens.back();
    token.sign = isFirst ? sign : "";
    token.whole = (*n)[1];
    if (isPairs) {
      token.mark = (*n)[2].str()[0];
      token.fraction = (*n)[3];
    }
  }
  std::size_t end = at + chain.size();
  if (count <= 2 && IsMatch(m, s, end, kPower)) {
    name.tokens.back().power = m[1];
    end += m[0].str().size();
    name.tokens.back().end = end;
  }
  return end;
}

Name CutName(const std::string& text) {
  Name name = {text, text.substr(0, text.rfind('.')), "", {}};
  for (std::size_t at = 0; at < name.stem.size();) {
    if (std::isdigit(static_cast<unsigned char>(name.stem[at])) != 0) {
      at = Cut(name, at);
    } else {
      name.pattern += static_cast<char>(std::tolower(static_cast<unsigned char>(name.stem[at++])));
    }
  }
  return name;
}

// A point in time as it is written: the letters say what its groups are (Year, moNth, Day, hour,
// minute, second, fraction, am or pm).
struct Form {
  std::string pattern, fields;
  bool isDoubtful = false;
  std::regex made = {};
};

std::string Marked(std::string pattern, char mark) {
  for (std::size_t at = 0; (at = pattern.find('M', at)) != std::string::npos;) {
    pattern.replace(at, 1, std::string("\\") + mark);
  }
  return pattern;
}

const std::vector<Form>& Forms() {
  static const std::vector<Form> kForms = [] {
    std::vector<Form> dates = {{R"((\d{4})(\d\d)(\d\d))", "YND"}};
    for (const char mark : {'-', '.', '_'}) {
      dates.push_back({Marked(R"((\d{4})M(\d\d?)M(\d\d?))", mark), "YND"});
      dates.push_back({Marked(R"((\d\d?)M(\d\d?)M(\d{4}))", mark), "DNY", mark != '.'});
      if (mark != '.') {
        dates.push_back({Marked(R"((\d\d?)M(\d\d?)M(\d{4}))", mark), "NDY"});
      }
    }
    const std::string behind = "[^0-9]*";
    std::vector<Form> clocks;
    std::vector<Form> alone;
    for (const char mark : {'.', '-', ':', '_'}) {
      const std::string twelve = Marked(R"((\d\d?)M(\d\d)M(\d\d)(?: | )?([ap])m)", mark);
      const std::string three = Marked(R"(M(\d\d)M(\d\d)(?:[.,](\d+))?)", mark);
      alone.push_back({twelve, "hmsa"});
      clocks.push_back({behind + twelve, "hmsa"});
      std::string threeBehind = behind + R"((\d\d?))";
      threeBehind += three;
      clocks.push_back({threeBehind, "hmsf"});
      if (mark != '_') {
        std::string threeAlone = R"((\d\d))" + three;
        threeAlone += Marked(R"((?!M\d))", mark);
        alone.push_back({threeAlone, "hmsf"});
      }
    }
    const std::string noLetters = "(?:[^0-9a-z]*|t)";
    clocks.push_back({behind + R"((\d\d)[-:.,](\d\d))", "hm"});
    clocks.push_back({noLetters + R"((\d\d)(\d\d)(\d\d)(\d{1,9}|[.,]\d+)?)", "hmsf"});
    std::vector<Form> forms;
    for (const Form& date : dates) {
      for (const Form& clock : clocks) {
        forms.push_back(
            {date.pattern + clock.pattern, date.fields + clock.fields, date.isDoubtful});
      }
      forms.push_back(date);
    }
    forms.insert(forms.end(), alone.begin(), alone.end());
    for (Form& form : forms) {
      form.made = Pattern(form.pattern);
    }
    return forms;
  }();
  return kForms;
}

struct Time {
  std::string value;
  // How many tokens it takes; 0 when there is none.
  std::size_t tokens = 0;
};

Time ReadTime(const Name& name, std::size_t token, const Form& form) {
  std::smatch m;
  if (!name.tokens[token].sign.empty() ||
      !IsMatch(m, name.stem, name.tokens[token].begin, form.made)) {
    return {};
  }
  std::map<char, std::string> field;
  for (std::size_t index = 0; index < form.fields.size(); ++index) {
    field[form.fields[index]] = m[index + 1];
  }
  const auto number = [&](char key) { return field[key].empty() ? 0 : std::stoi(field[key]); };
  const std::string days = field['Y'].empty() ? "0" : Days(field['Y'], field['N'], field['D']);
  const bool isTwelve = !field['a'].empty();
  const int hour =
      isTwelve ? number('h') % 12 + (tolower(field['a'][0]) == 'p' ? 12 : 0) : number('h');
  if (days.empty() || hour > 23 || number('m') > 59 || number('s') > 59 ||
      (isTwelve && (number('h') < 1 || number('h') > 12))) {
    return {};
  }
  field['f'].erase(0, std::min(field['f'].find_first_of("0123456789"), field['f'].size()));
  const std::size_t end = name.tokens[token].begin + m[0].str().size();
  const long long seconds =
      std::stoll(days) * 86400 + (hour * 60LL + number('m')) * 60 + number('s');
  for (std::size_t last = token; last < name.tokens.size(); ++last) {
    if (name.tokens[last].end == end) {
      return {Value("", std::to_string(seconds), field['f']), last - token + 1};
    }
  }
  return {};
}

struct Row {
  std::string text;
  // What the numbers are joined by as this reading has it.
  std::string pattern;
  Strings values;
  // 't' for each value that is a time, else 'n'.
  std::string kinds;
};

struct Reading {
  // The names in their order and, of each, its part; the sequences of one pattern together.
  Strings order;
  std::vector<std::size_t> parts;
  std::vector<std::size_t> sizes;
  std::vector<bool> hasParts;
  bool hasStep = false;
};

bool HasStep(const std::vector<Row>& rows, std::size_t counter) {
  std::vector<long long> all;
  std::vector<long long> same;
  for (std::size_t index = 1; index < rows.size(); ++index) {
    const Strings& a = rows[index - 1].values;
    const Strings& b = rows[index].values;
    const long long difference = Billionths(b[counter]) - Billionths(a[counter]);
    const bool isSame = std::equal(a.begin(), a.begin() + static_cast<long>(counter), b.begin());
    all.push_back(difference);
    if (isSame) {
      same.push_back(difference);
    }
  }
  const bool goesOn =
      same.empty() && !all.empty() && *std::min_element(all.begin(), all.end()) >= 0;
  std::vector<long long> steps = goesOn ? all : same;
  std::erase_if(steps, [](long long step) { return step <= 0; });
  if (steps.empty()) {
    return false;
  }
  const long long step = *std::min_element(steps.begin(), steps.end());
  long long missing = 0;
  for (const long long other : steps) {
    if (other % step != 0) {
      return false;
    }
    missing += other / step - 1;
  }
  const auto count = static_cast<long long>(steps.size());
  return 2 * std::count(steps.begin(), steps.end(), step) > count && missing <= count;
}

void AddSequence(Reading& reading, std::vector<Row> rows) {
  std::sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) {
    return std::tie(a.values, a.text) < std::tie(b.values, b.text);
  });
  std::vector<std::set<std::string>> values(rows[0].values.size());
  for (const Row& row : rows) {
    for (std::size_t index = 0; index < values.size(); ++index) {
      values[index].insert(row.values[index]);
    }
  }
  std::size_t counter = 0;
  for (std::size_t index = 0; index < values.size(); ++index) {
    counter = values[index].size() >= values[counter].size() ? index : counter;
  }
  std::map<std::string, std::set<Strings>> others;
  std::vector<Strings> parts;
  for (const Row& row : rows) {
    Strings other;
    for (std::size_t index = 0; index < values.size(); ++index) {
      if (index != counter && !(rows[0].kinds[index] == 't' && index < counter)) {
        other.push_back(row.values[index]);
      }
    }
    others[row.values[counter]].insert(other);
    parts.push_back(other);
  }
  const bool hasParts =
      std::any_of(others.begin(), others.end(), [](const auto& o) { return o.second.size() > 1; });
  for (std::size_t index = 0; index < rows.size(); ++index) {
    reading.order.push_back(rows[index].text);
    const std::set<Strings> all(parts.begin(), parts.end());
    reading.parts.push_back(
        hasParts ? static_cast<std::size_t>(std::distance(all.begin(), all.find(parts[index])))
                 : 0);
  }
  reading.sizes.push_back(rows.size());
  reading.hasParts.push_back(hasParts);
  reading.hasStep = !hasParts && HasStep(rows, counter);
}

// 'd' and 'w' for each token that is to be read as a decimal or as counters.
Reading Read(const std::vector<Name>& names, const std::string& marks,
             const std::map<std::size_t, Form>& times) {
  std::map<std::string, std::vector<Row>> rows;
  for (const Name& name : names) {
    Row row = {name.text, "", {}, ""};
    for (std::size_t index = 0; index < name.tokens.size();) {
      const Token& token = name.tokens[index];
      const auto time = times.find(index);
      if (time != times.end()) {
        const Time read = ReadTime(name, index, time->second);
        row.values.push_back(read.value);
        index += read.tokens;
      } else if (marks[index] == 'd') {
        row.values.push_back(Value(token.sign, token.whole, token.fraction,
                                   token.power.empty() ? 0 : std::stoi(token.power)));
        ++index;
      } else {
        row.values.push_back(Value(token.sign, token.whole));
        if (!token.fraction.empty()) {
          row.values.push_back(Value("", token.fraction));
        }
        if (!token.power.empty()) {
          row.values.push_back(
              Value("", token.power.substr(std::isdigit(token.power[0]) != 0 ? 0 : 1)));
        }
        row.pattern +=
            std::string(1, token.mark) + (token.power.empty()                 ? ' '
                                          : std::isdigit(token.power[0]) != 0 ? 'e'
                                                                              : token.power[0]);
        ++index;
      }
      row.kinds.resize(row.values.size(), time != times.end() ? 't' : 'n');
    }
    rows[row.pattern].push_back(row);
  }
  Reading reading;
  for (const auto& [pattern, some] : rows) {
    AddSequence(reading, some);
  }
  return reading;
}

// 'n' for no marks, 'd' and 'w' for what the names tell, '?' when they do not.
char Tell(const std::vector<Name>& names, std::size_t index) {
  std::set<std::string> forms;
  std::set<std::size_t> lengths;
  bool isDecimal = false, isWhole = false, hasZero = false, hasPadded = false;
  for (const Name& name : names) {
    const Token& t = name.tokens[index];
    forms.insert(std::string(t.fraction.empty() ? "" : "f") + (t.power.empty() ? "" : "e"));
    if (!t.power.empty()) {
      isDecimal = isDecimal || !t.fraction.empty() || std::isdigit(t.power[0]) == 0;
      isWhole = isWhole || (t.fraction.empty() && std::isdigit(t.power[0]) != 0 &&
                            t.whole.size() > 1 && t.whole[0] == '0');
    } else if (!t.fraction.empty()) {
      lengths.insert(t.fraction.size());
      hasZero = hasZero || t.fraction == "0";
      hasPadded = hasPadded || (t.fraction.size() > 1 && t.fraction[0] == '0');
    }
  }
  bool endsInZero = false;
  for (const Name& name : names) {
    const Token& t = name.tokens[index];
    endsInZero = endsInZero || (t.power.empty() && t.fraction.ends_with('0') &&
                                t.fraction.size() > *lengths.begin());
  }
  if (forms == std::set<std::string>{""}) {
    return 'n';
  }
  isDecimal = isDecimal || forms.size() > 1 ||
              (lengths.size() > 1 && (hasPadded || (hasZero && !endsInZero)));
  isWhole = isWhole || endsInZero;
  return isDecimal == isWhole ? '?' : isDecimal ? 'd' : 'w';
}

// All readings that give different films; the first alone when no one has to be asked.
std::vector<Reading> ReadAll(const std::vector<Name>& names, char option) {
  std::map<std::size_t, Form> times;
  std::map<std::size_t, Form> others;
  std::string marks;
  for (std::size_t index = 0; index < names[0].tokens.size(); ++index) {
    const char told = Tell(names, index);
    marks += told == 'n' || option == ' ' ? told : option;
  }
  std::set<std::size_t> doubtful;
  for (std::size_t index = 0; index < marks.size();) {
    std::size_t taken = 0;
    for (const Form& form : Forms()) {
      const std::size_t tokens = ReadTime(names[0], index, form).tokens;
      if (tokens == 0 || std::any_of(names.begin(), names.end(), [&](const Name& name) {
            return ReadTime(name, index, form).tokens != tokens;
          })) {
        continue;
      }
      if (taken == 0) {
        times[index] = form;
        taken = tokens;
      } else if (tokens == taken && times[index].isDoubtful && form.fields.starts_with("NDY")) {
        others[index] = form;
      }
    }
    std::fill_n(marks.begin() + static_cast<long>(index), taken, 'n');
    index += std::max<std::size_t>(taken, 1);
  }
  // A date that may be read in two ways is none; what the other readings give must be the same.
  std::map<std::size_t, Form> sure = times;
  for (const auto& [index, form] : others) {
    sure.erase(index);
  }
  const auto with = [&](char c) {
    std::string all = marks;
    std::replace(all.begin(), all.end(), '?', c);
    return Read(names, all, sure);
  };
  std::vector<Reading> ways = {with('d')};
  const auto isOneOrder = [](const Reading& a, const Reading& b) {
    return a.sizes.size() == 1 && b.sizes.size() == 1 && a.order == b.order;
  };
  if (marks.find('?') != std::string::npos) {
    const Reading whole = with('w');
    if (!isOneOrder(ways[0], whole) || (ways[0].parts != whole.parts && !ways[0].hasStep)) {
      ways.push_back(whole);
    }
  }
  if (!others.empty() && option != 'w') {
    std::replace(marks.begin(), marks.end(), '?', 'd');
    std::map<std::size_t, Form> both = times;
    for (const auto& [index, form] : others) {
      both[index] = form;
    }
    for (const Reading& way : {Read(names, marks, times), Read(names, marks, both)}) {
      if (!isOneOrder(ways[0], way) || ways[0].parts != way.parts) {
        ways.push_back(way);
      }
    }
  }
  return ways;
}

}  // namespace

std::vector<std::string> OrderLiterally(const std::vector<std::string>& names, char marks) {
  std::map<std::string, std::vector<Name>> groups;
  for (const std::string& name : names) {
    const Name cut = CutName(name);
    groups[cut.tokens.empty() ? "/" + name : cut.pattern].push_back(cut);
  }
  std::size_t most = 0;
  Strings film;
  for (const auto& [pattern, group] : groups) {
    const bool isNumbered = !group[0].tokens.empty();
    const std::vector<Reading> ways =
        isNumbered ? ReadAll(group, marks)
                   : std::vector<Reading>{{{group[0].text}, {0}, {1}, {false}}};
    std::size_t first = 0;
    for (std::size_t index = 0; index < ways[0].sizes.size(); ++index) {
      const std::size_t size = ways[0].sizes[index];
      if (size >= most) {
        const bool isSure = size > most && ways.size() == 1 && !ways[0].hasParts[index];
        const auto begin = ways[0].order.begin() + static_cast<long>(first);
        film = isSure ? Strings(begin, begin + static_cast<long>(size)) : Strings();
        most = size;
      }
      first += size;
    }
  }
  return most < 2 ? Strings() : film;
}

std::vector<std::string> NamesOfBytes(const std::string& bytes) {
  std::size_t used = 0;
  const auto draw = [&](std::size_t count) {
    return used < bytes.size() ? static_cast<unsigned char>(bytes[used++]) % count : 0;
  };
  const auto pick = [&](const Strings& choices) { return choices[draw(choices.size())]; };
  // What the names are made of; every set uses few of them.
  static const std::vector<Strings> kNumbers = {
      {"0", "1", "2", "9", "10", "11"},
      {"1.9", "1.10", "1.2", "1.11", "2.1", "2.0", "1.05"},
      {"0.5", "1.0", "1.5", "2.0", "2.5"},
      {"0.1", "0.25", "1", "10", "1e-05", "2.5e3"},
      {"000", "001", "002", "010"},
      {"-1", "-10", "+5", "3", "-0.5"},
      {"0,5", "1,25", "2", "1.5"},
      {"1e3", "5e3", "1e4", "01e2", "7"},
      {"1.2.3", "1.10.3", "1.2.20"},
      {"1.5,2.5", "1.25,2.5", "10.5,1.0"},
      {"20240305", "20240304", "20231231", "20240332"},
      {"2024-03-05", "2024-03-04", "2023-12-31"},
      {"05.03.2024", "04.04.2024", "06.02.2024"},
      {"05-03-2024", "04-04-2024", "25-01-2024"},
      {"20240305_115958", "20240305_120000", "20240305_115958123", "20240305_115961"},
      {"2024-03-05 at 9.05.12 AM", "2024-03-05 at 12.30.00 PM", "2024-03-05 at 12.30.00am"},
      {"9.05.12 AM", "12.30.12pm", "1.00.00 PM"},
      {"12.00.15", "11.59.58", "12.00.61"},
      {"2024-03-05T11-59-58", "2024-03-05T11-59-58.5", "2024-03-06T00-00-00"}};
  constexpr std::size_t kTimes = 10;
  static const Strings kTexts = {"", "f_", "t=", "cam", "shot-", "a (", "e"};
  static const Strings kBetween = {"_", "-", "_t", " ", "_c", "x"};
  Strings names;
  for (std::size_t groups = 1 + draw(2); groups > 0; --groups) {
    const std::string front = pick(kTexts);
    const std::size_t columns = 1 + draw(3);
    std::vector<Strings> numbers;
    Strings between;
    bool hasTime = false;
    for (std::size_t column = 0; column < columns; ++column) {
      const std::size_t kind = draw(kNumbers.size());
      // Two points in time in a name are beyond all rules.
      numbers.push_back(kNumbers[hasTime ? kind % kTimes : kind]);
      hasTime = hasTime || kind >= kTimes;
      between.push_back(pick(kBetween));
    }
    for (std::size_t count = 2 + draw(7); count > 0; --count) {
      std::string name = front;
      for (std::size_t column = 0; column < columns; ++column) {
        name += (column == 0 ? "" : between[column]) + pick(numbers[column]);
      }
      names.push_back(name + ".png");
    }
  }
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}
