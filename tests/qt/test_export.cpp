// The program itself, without a display, on the examples and on files that are broken. What it
// tabulates is held against published answers, closed forms and balances.
#include "data/formats/zi3.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "tests/temp_folder.h"

#include <QImage>
#include <QProcess>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

namespace zorvant {
namespace {

using testing::HasSubstr;

struct Outcome {
    int status = -1; ///< -1: it crashed
    std::string out, err;
};

using Variables = std::vector<std::pair<const char*, const char*>>;

Outcome StartProgram(const std::vector<std::string>& arguments, const Variables& set = {},
                     const char* program = ZORVANT_PROGRAM) {
    QStringList list;
    for (const std::string& argument : arguments)
        list.append(QString::fromStdString(argument));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"})
        environment.remove(QString::fromLatin1(name));
    for (const auto& [name, value] : set)
        environment.insert(QString::fromLatin1(name), QString::fromLatin1(value));
    process.setProcessEnvironment(environment);
    process.start(QString::fromLatin1(program), list);
    if (!process.waitForFinished(60000))
        process.kill();
    return {.status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            .out = process.readAllStandardOutput().toStdString(),
            .err = process.readAllStandardError().toStdString()};
}

std::string Example(const std::string& name) {
    return SOURCE_DIR "/examples/" + name;
}

/// The numbers of the exported table; the time in column 0, blank columns left out. Numbers have
/// seven digits.
std::vector<std::vector<double>> Tabulate(const std::string& name,
                                          const std::vector<std::string>& options = {}) {
    const TempFolder folder;
    const std::string table = folder / "course.TXT", picture = folder / "course.png";
    std::vector<std::string> arguments{"--export", picture, "--table", table, Example(name)};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const Outcome outcome = StartProgram(arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(QImage(QString::fromStdString(picture)).size(), QSize(900, 600));
    std::vector<std::vector<double>> rows;
    const QString text = QString::fromStdString(ReadFile(table));
    const QStringList lines = text.split(QStringLiteral("\r\n"));
    for (qsizetype i = 2; i + 1 < lines.size(); ++i) {
        rows.emplace_back();
        for (const QString& cell : lines[i].split(QLatin1Char('\t')))
            if (!cell.trimmed().isEmpty())
                rows.back().push_back(Val(cell.toStdString()));
    }
    EXPECT_EQ(rows.size(), 201U) << name;
    // Times have two decimals; the grid is even, and its end is exact.
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const double time = rows.back()[0] * static_cast<double>(i) / 200;
        EXPECT_NEAR(rows[i][0], time, 0.0051) << name;
        rows[i][0] = time;
    }
    return rows;
}

std::vector<ExpPoint> Measured(const std::string& name) {
    return ParseZi3(ReadFile(Example(name))).rows;
}

/// Slope of the least-squares line through y(x).
template <class X, class Y> double Slope(const std::vector<ExpPoint>& points, X x, Y y) {
    double sx = 0, sy = 0, sxx = 0, sxy = 0;
    const auto n = static_cast<double>(points.size());
    for (const ExpPoint& point : points) {
        sx += x(point);
        sy += y(point);
        sxx += x(point) * x(point);
        sxy += x(point) * y(point);
    }
    return (n * sxy - sx * sy) / (n * sxx - sx * sx);
}

double Time(const ExpPoint& point) {
    return point.t;
}

} // namespace

TEST(Export, DrawsDecompositionsAsPublished) {
    struct Row {
        std::string name;
        double order, slope, scatter; ///< of ln c or 1/c against t
    };
    // S. S. Zumdahl, Chemistry (N2O5, butadiene); T. L. Brown, H. E. LeMay, Chemistry (NO2)
    for (const Row& row : {Row{"n2o5", 1, 6.93e-3, 0.02e-3}, Row{"no2", 2, 0.543, 0.002},
                           Row{"butadiene", 2, 0.0614, 0.0005}}) {
        const bool first = row.order == 1;
        const auto straight = [&](double c) { return first ? -std::log(c) : 1 / c; };
        const auto course = [&](double t) {
            return first ? 0.1 * std::exp(-row.slope * t) : 1 / (100 + row.slope * t);
        };
        const auto measured = Measured(row.name + ".ZI3");
        EXPECT_NEAR(Slope(measured, Time, [&](const ExpPoint& p) { return straight(p.cA); }),
                    row.slope, row.scatter)
            << row.name;
        for (const auto& line : Tabulate(row.name + ".ZC3")) {
            EXPECT_NEAR(line[1], course(line[0]), 1e-8) << row.name;
            EXPECT_NEAR(line[1] + row.order * line[2], course(0), 1e-7) << row.name;
        }
        for (const ExpPoint& point : measured)
            EXPECT_NEAR(point.cA, course(point.t), 0.0001) << row.name;
    }
    // the rates are the slopes of the course
    for (const auto& row : Tabulate("n2o5.ZC3", {"--rates"}))
        EXPECT_NEAR(row[1], -6.93e-3 * 0.1 * std::exp(-6.93e-3 * row[0]), 1e-9);
}

TEST(Export, HasExamplesWhoseConstantsArePublished) {
    // F. Daniels, R. A. Alberty, Physical Chemistry: k = 1.26E-4 1/s, 39.81 mL at the end; least
    // squares weigh the four readings otherwise than the book did
    const auto remaining = [](const ExpPoint& p) {
        return std::log(39.81 - static_cast<double>(p.lambda));
    };
    EXPECT_NEAR(-Slope(Measured("methyl_acetate.ZI3"), Time, remaining), 1.26e-4, 0.04e-4);
    // there are no concentrations to draw, and nothing is said about it
    for (const auto& row : Tabulate("methyl_acetate.ZC3"))
        EXPECT_NEAR(row[1], std::exp(-1.26e-4 * row[0]), 1e-7);
    // F. Daniels, E. H. Johnston, J. Am. Chem. Soc. 43 (1921) 53; M. Bodenstein, Z. phys. Chem. 29
    // (1899) 295
    const auto activationEnergy = [](const std::string& name) {
        const double slope = Slope(
            Measured(name), [](const ExpPoint& p) { return 1 / p.T; },
            [](const ExpPoint& p) { return std::log(p.k); });
        return -slope * 8.3145e-3; // kJ/mol
    };
    EXPECT_NEAR(activationEnergy("n2o5_k_of_t.ZI3"), 103, 1);
    EXPECT_NEAR(activationEnergy("hi_k_of_t.ZI3"), 184, 2);
}

TEST(Export, DrawsTheOtherModelsByTheirLaws) {
    using Course = std::vector<double>; // t and the concentrations of a line
    struct Law {
        const char* example;
        double tolerance;
        double (*residual)(const Course&);
    };
    std::string example;
    std::vector<Course> course;
    for (const Law& law : std::initializer_list<Law>{
             {"consecutive", 1e-7,
              [](const Course& c) {
                  return c[2] - 1.5 * (std::exp(-0.05 * c[0]) - std::exp(-0.15 * c[0]));
              }},
             {"consecutive", 2e-7, [](const Course& c) { return c[1] + c[2] + c[3] - 1; }},
             {"competing", 5e-7, [](const Course& c) { return c[2] - 3 * c[3]; }},
             {"reversible", 1e-7,
              [](const Course& c) { return c[2] - 0.375 * (1 - std::exp(-0.4 * c[0])); }},
             {"reversible", 3e-7, [](const Course& c) { return c[1] + c[2] - 0.5; }},
             // c(P)/c(A) grows by exp((c(A,0) + c(P,0)) k t); in the end c(A) has few digits
             {"autocatalysis", 1e-5,
              [](const Course& c) {
                  return (std::log(c[2] / c[1]) - std::log(0.002) - 1.002 * 0.15 * c[0]) *
                         (c[1] > 1e-4 ? 1 : 1e-3);
              }},
             // A + B => C, A + C => P: c(C) follows from c(B) alone; B goes into C and P, so does A
             {"competing_consecutive", 1e-5,
              [](const Course& c) { return c[3] - (std::pow(c[2], 0.25) - c[2]) / 0.75; }},
             {"competing_consecutive", 1e-6,
              [](const Course& c) { return c[2] + c[3] + c[4] - 1; }},
             {"competing_consecutive", 1e-6,
              [](const Course& c) { return c[1] + c[3] + 2 * c[4] - 2; }},
             // K = 4
             {"esterification", 1e-4,
              [](const Course& c) {
                  return std::log((2 - c[3]) / (2.0 / 3 - c[3])) - std::log(3.0) - 0.08 * c[0];
              }},
             {"esterification", 3e-7, [](const Course& c) { return c[1] + c[3] - 1; }},
             {"order_n", 1e-6, // order 1.5 from 1 mol/L
              [](const Course& c) { return c[1] - std::pow(1 + 0.075 * c[0], -2); }},
             {"enzyme", 1e-6, [](const Course& c) { return c[1] + c[3] - 0.5; }}, // E, S, ES, P
             {"enzyme", 1e-6, [](const Course& c) { return c[2] + c[3] + c[4] - 2; }},
         }) {
        if (law.example != example)
            course = Tabulate((example = law.example) + ".ZC3");
        for (const Course& line : course)
            EXPECT_NEAR(law.residual(line), 0, law.tolerance) << example << ' ' << line[0];
    }
    // r(P) = k3 c(ES), from the differences of the table beyond the first moments
    const auto enzyme = Tabulate("enzyme.ZC3");
    for (std::size_t i = 21; i + 1 < enzyme.size(); ++i)
        EXPECT_NEAR((enzyme[i + 1][4] - enzyme[i - 1][4]) / 0.6, 0.15 * enzyme[i][3], 2e-4);
    for (const auto& row : Tabulate("enzyme.ZC3", {"--michaelis"}))
        EXPECT_NEAR(row[1], row[0] / (1 + row[0]), 1e-7);
}

TEST(Export, DrawsThePointsOfTheProjectTheSameEachTime) {
    const TempFolder folder;
    std::string project = ReadFile(Example("n2o5.ZC3"));
    project.replace(project.find("n2o5.ZI3"), 8, "");
    WriteFileAtomically(folder / "plain.ZC3", project);
    const auto draw = [&](const std::string& from) {
        EXPECT_EQ(StartProgram({"--export", folder / "a.png", from}).status, 0);
        return ReadFile(folder / "a.png");
    };
    const std::string once = draw(Example("n2o5.ZC3"));
    EXPECT_EQ(draw(Example("n2o5.ZC3")), once);
    EXPECT_NE(draw(folder / "plain.ZC3"), once);
}

TEST(Export, TellsWhatIsWrongWithAProjectAndWritesNothing) {
    const std::string good = ReadFile(Example("n2o5.ZC3"));
    const auto with = [&](const std::string& from, const std::string& to) {
        return std::string(good).replace(good.find(from), from.size(), to);
    };
    const TempFolder folder;
    std::filesystem::copy(Example("n2o5.ZI3"), folder / "n2o5.ZI3");
    const std::string project = folder / "p.ZC3", picture = folder / "old.png";
    WriteFileAtomically(picture, "as it was");
    for (const auto& [content, says] : std::vector<std::pair<std::string, const char*>>{
             {"", "Execution not possible"},
             {good.substr(0, good.size() / 2), "Execution not possible"},
             {with("0.00693", "nan"), "Execution not possible"},
             {with("450", "1e999"), "Execution not possible"},
             {with(" 2 ", " 77 "), "Execution not possible"},
             {with("0.00693", "0"), "k1 > 0"},
             {with("n2o5.ZI3", "nowhere.ZI3"), "nowhere.ZI3"},
             {with("n2o5.ZI3", "data.CSV"), "not of the type *.ZI3"}}) {
        WriteFileAtomically(project, content);
        const Outcome outcome =
            StartProgram({"--export", picture, "--table", folder / "t.TXT", project});
        EXPECT_EQ(outcome.status, 2) << content;
        EXPECT_EQ(outcome.out, "") << content;
        EXPECT_THAT(outcome.err, HasSubstr(says));
        EXPECT_EQ(ReadFile(picture), "as it was") << content;
        EXPECT_FALSE(FileExists(folder / "t.TXT")) << content;
    }
    for (const auto& [option, file, from] :
         {std::tuple{"--export", folder / "no/a.png", Example("n2o5.ZC3")},
          {"--table", folder.Path(), Example("n2o5.ZC3")},
          {"--export", picture, folder.Path()},
          {"--export", picture, folder / "none.ZC3"}}) {
        const Outcome refused = StartProgram({option, file, from});
        EXPECT_EQ(refused.status, 2) << file;
        EXPECT_NE(refused.err, "") << file;
    }
    WriteFileAtomically(project, with("Decomposition", "\xff\xfe\x01")); // any bytes in a comment
    EXPECT_EQ(StartProgram({"--export", picture, project}).status, 0);
}

TEST(Export, NeverWritesOverWhatItReadsOrOverItself) {
    const TempFolder folder;
    const std::string project = folder / "n2o5.ZC3", data = folder / "n2o5.ZI3";
    std::filesystem::copy(Example("n2o5.ZC3"), project);
    std::filesystem::copy(Example("n2o5.ZI3"), data);
    std::filesystem::create_symlink("n2o5.ZI3", folder / "link.png");
    std::filesystem::create_hard_link(project, folder / "second.TXT");
    const auto before = folder.Names();
    for (const auto& [picture, table] : {std::pair{"a.png", "n2o5.ZI3"},
                                         {"a.png", "second.TXT"},
                                         {"link.png", "t.TXT"},
                                         {"a.png", "./a.png"},
                                         {"a.png", "no/t.TXT"}}) {
        EXPECT_EQ(
            StartProgram({"--export", folder / picture, "--table", folder / table, project}).status,
            2)
            << picture << ' ' << table;
        EXPECT_EQ(ReadFile(data), ReadFile(Example("n2o5.ZI3")));
        EXPECT_EQ(ReadFile(project), ReadFile(Example("n2o5.ZC3")));
        EXPECT_THAT(folder.Names(), testing::UnorderedElementsAreArray(before));
    }
}

TEST(Export, KeepsItsWordWhateverSurroundsIt) {
    const TempFolder folder;
    const std::string project = Example("n2o5.ZC3");
    // a table goes where standard output does
    EXPECT_THAT(StartProgram({"--table", "/dev/stdout", project}).out, HasSubstr("cA/(mol/L)"));
    const auto run = [&](const std::string& command) {
        return StartProgram({"-c", command, ZORVANT_PROGRAM, project, folder.Path()}, {},
                            "/bin/sh");
    };
    EXPECT_EQ(run("(echo head; \"$0\" --table /dev/stdout \"$1\") >> \"$2t\"").status, 0);
    EXPECT_THAT(ReadFile(folder / "t"), testing::StartsWith("head\n"));
    const Outcome closed =
        run("(sleep 0.3; \"$0\" --table /dev/stdout \"$1\"; echo $? >&2) | true");
    EXPECT_THAT(closed.err, HasSubstr("Broken pipe"));
    EXPECT_THAT(closed.err, testing::EndsWith("2\n"));
    // pictures do not depend on where and under what they are drawn
    std::vector<std::string> pdfs;
    for (const Variables& each : std::vector<Variables>{
             {{"TZ", "UTC"}}, {{"TZ", "Asia/Kolkata"}}, {{"QT_QPA_PLATFORM", "minimal"}}}) {
        EXPECT_EQ(StartProgram({"--export", folder / "a.pdf", project}, each).status, 0);
        pdfs.push_back(ReadFile(folder / "a.pdf"));
        EXPECT_EQ(pdfs.back(), pdfs.front());
    }
    const std::string& pdf = pdfs.front();
    const std::size_t table = std::stoul(pdf.substr(pdf.rfind("startxref\n") + 10));
    EXPECT_EQ(pdf.substr(table, 5), "xref\n");
    EXPECT_EQ(pdf.substr(std::stoul(pdf.substr(pdf.find(" n \n", table) - 16, 10)), 7), "1 0 obj");
    EXPECT_EQ(pdf.substr(std::stoul(pdf.substr(pdf.rfind(" n \n") - 16, 10))).find(" 0 obj"), 2U);
    std::filesystem::remove(folder / "a.pdf");
    const std::string noFonts = folder / "fonts.conf";
    WriteFileAtomically(noFonts, "<fontconfig><dir>/no/such/folder</dir></fontconfig>");
    const Outcome bare = StartProgram({"--export", folder / "a.pdf", project},
                                      {{"FONTCONFIG_FILE", noFonts.c_str()}});
    EXPECT_EQ(bare.status, 2);
    EXPECT_THAT(bare.err, HasSubstr("no font"));
    EXPECT_FALSE(FileExists(folder / "a.pdf"));
    EXPECT_THAT(StartProgram({"--help"}).out, HasSubstr("--export FILE"));
    EXPECT_THAT(StartProgram({"--exprot", "a.png"}).err, HasSubstr("--exprot"));
    // what a file says is shown, not obeyed
    std::string hostile = ReadFile(project);
    hostile.replace(hostile.find("n2o5.ZI3"), 8, std::string("\x1B[2J\0.ZI3", 9));
    WriteFileAtomically(folder / "\x1B[31m.ZC3", hostile);
    const Outcome told = StartProgram({"--table", folder / "t", folder / "\x1B[31m.ZC3"});
    EXPECT_EQ(told.status, 2);
    EXPECT_THAT(told.err, testing::Not(HasSubstr("\x1B")));
}

#ifndef __SANITIZE_ADDRESS__ // which needs more address space than any picture
TEST(Export, OfAPictureThatMemoryDoesNotAllowIsRefusedInEveryFormat) {
    const TempFolder folder;
    for (const char* ending : {"bmp", "png"})
        for (const int megabytes : {300, 400, 500, 800}) {
            const std::string file = folder / std::string("a.") + ending;
            std::filesystem::remove(file);
            const Outcome outcome = StartProgram(
                {"-c", "ulimit -v " + std::to_string(megabytes * 1024) + "; exec \"$@\"", "sh",
                 ZORVANT_PROGRAM, "--export", file, "--size", "6000x6000", Example("n2o5.ZC3")},
                {}, "/bin/sh");
            EXPECT_TRUE(outcome.status == 0 || outcome.status == 2) << megabytes << outcome.err;
            EXPECT_EQ(FileExists(file), outcome.status == 0) << megabytes;
            if (outcome.status == 0) {
                EXPECT_GT(std::filesystem::file_size(file), 100'000U) << megabytes;
            }
        }
}
#endif

} // namespace zorvant
