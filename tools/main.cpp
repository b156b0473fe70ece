// SPDX-License-Identifier: MIT
// exciter-settings: checks, shows, formats, reads, changes and compares
// settings files of any record of the library, chosen by the file's root
// element.
#include "Commands.h"
#include "RecordRegistry.h"

#include <ExciterSettingsVersion.h>
#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>
#include <Utf8TextStream.h>

#include <cstdio>
#include <exception>

namespace {

using namespace tool;

// The record names after the lead-in, wrapped to the width of the help text.
QString RecordNames(const QString& leadIn) {
    const int width = 80;
    const QStringList names = RecordRegistry::Instance().RootNames();
    QString text = leadIn;
    int lineLength = leadIn.size();
    for (int i = 0; i < names.size(); ++i) {
        const QString word = names.at(i) + QLatin1Char(i + 1 < names.size() ? ',' : '.');
        const bool fits = lineLength + 1 + word.size() <= width;
        text += fits ? QLatin1Char(' ') : QLatin1Char('\n');
        lineLength = fits ? lineLength + 1 + word.size() : word.size();
        text += word;
    }
    return text;
}

QString Description() {
    return QStringLiteral(
               "Checks, shows, lints, formats, changes and compares ExciterSettings XML files.\n"
               "%1\n"
               "\n"
               "Commands:\n"
               "  check FILE...         Load and validate each file; prints \"FILE: OK\" or\n"
               "                        \"FILE: <reason>\" per file.\n"
               "  show FILE [--json]    Print the settings as an indented tree, or as JSON.\n"
               "  lint FILE...          Report what each file would lose or change without a\n"
               "                        word when loaded and saved: numbers that do not\n"
               "                        convert, flags other than \"true\"/\"false\", texts\n"
               "                        outside a choice list, more decimals than are kept,\n"
               "                        unknown elements and attributes, values given twice,\n"
               "                        damaged Base64 lists, values outside their range. One\n"
               "                        line per finding: \"FILE:LINE:COLUMN: warning: MESSAGE\"\n"
               "                        (\"error:\" when the file cannot be read at all).\n"
               "  format FILE [-o OUT]  Write the file back in the library's indented form, to\n"
               "                        OUT or in place. The write is atomic: on failure the\n"
               "                        original stays untouched.\n"
               "  get FILE PATH...      Print the settings that the paths name, as show prints\n"
               "                        them (\"TGN/Power\", \"WDE/ExciterList/0/Level\").\n"
               "  set FILE PATH=VALUE... [--json JSONFILE] [-o OUT] [--force]\n"
               "                        Change settings and save atomically; refuses what the\n"
               "                        lint or the record's check would reject.\n"
               "  diff A B              Print \"PATH: old -> new\" per setting that differs.\n"
               "  schema                Print the XML Schema (XSD 1.0) of the settings files,\n"
               "                        for editors and validators (xmllint --schema).\n"
               "\n"
               "A FILE of \"-\" is standard input, an OUT of \"-\" standard output.\n"
               "\n"
               "Exit status:\n"
               "  0   success\n"
               "  1   check: a file failed validation; lint: a file had findings; format:\n"
               "      the result could not be written (incomplete settings, target not\n"
               "      writable); set: the change was refused or not written; diff: the\n"
               "      files differ\n"
               "  2   a file could not be read: missing, not well-formed XML, unknown root\n"
               "      element, or rejected by its record while loading (such as an unknown\n"
               "      element); the reason goes to standard error as \"FILE: <reason>\"\n"
               "  64  wrong usage, or a path that names no setting")
        .arg(RecordNames(QStringLiteral("The root element of a file names its record:")));
}

int UsageError(QTextStream& err, const QString& text) {
    err << QCoreApplication::applicationName() << ": " << text << '\n'
        << "Try '" << QCoreApplication::applicationName() << " --help'.\n";
    return ExitUsage;
}

// The options that commands share.
struct Options {
    QCommandLineOption output{{QStringLiteral("o"), QStringLiteral("output")},
                              QStringLiteral("Write to OUT instead of rewriting FILE."),
                              QStringLiteral("OUT")};
    QCommandLineOption showJson{QStringLiteral("json"), QStringLiteral("Print JSON.")};
    QCommandLineOption setJson{QStringLiteral("json"),
                               QStringLiteral("Apply the JSON document (as show --json prints "
                                              "it; \"-\" for standard input)."),
                               QStringLiteral("JSONFILE")};
    QCommandLineOption force{QStringLiteral("force"),
                             QStringLiteral("Save even what the lint or Check() rejects.")};
};

// A command: how it adds its arguments to the parser and how it runs.
struct Command {
    const char* name;
    const char* example;
    void (*setUp)(QCommandLineParser& parser, const Options& options);
    int (*run)(const QCommandLineParser& parser, const Options& options, QTextStream& out,
               QTextStream& err);
};

void FileArgument(QCommandLineParser& parser, const QString& help) {
    parser.addPositionalArgument(QStringLiteral("FILE"), help);
}

QStringList Files(const QCommandLineParser& parser) {
    return parser.positionalArguments().mid(1);
}

const Command kCommands[] = {
    {"check", "exciter-settings check examples/*.xml",
     [](QCommandLineParser& parser, const Options&) {
         parser.addPositionalArgument(QStringLiteral("check"),
                                      QStringLiteral("Load and validate each FILE."));
         parser.addPositionalArgument(QStringLiteral("FILE"),
                                      QStringLiteral("Settings files to validate."),
                                      QStringLiteral("FILE..."));
     },
     [](const QCommandLineParser& parser, const Options&, QTextStream& out, QTextStream& err) {
         if (Files(parser).isEmpty())
             return UsageError(err, QStringLiteral("check needs at least one FILE"));
         return RunCheck(Files(parser), out, err);
     }},
    {"show", "exciter-settings show --json examples/sweep.xml | jq .Exciter_Settings.TGN.Power",
     [](QCommandLineParser& parser, const Options& options) {
         parser.addPositionalArgument(QStringLiteral("show"),
                                      QStringLiteral("Print FILE as a tree."));
         FileArgument(parser, QStringLiteral("Settings file."));
         parser.addOption(options.showJson);
     },
     [](const QCommandLineParser& parser, const Options& options, QTextStream& out,
        QTextStream& err) {
         if (Files(parser).size() != 1)
             return UsageError(err, QStringLiteral("show takes exactly one FILE"));
         return parser.isSet(options.showJson) ? RunShowJson(Files(parser).first(), out, err)
                                               : RunShow(Files(parser).first(), out, err);
     }},
    {"lint",
     "sed 's/<TransmitTime>2.50</<TransmitTime>0.0004</' examples/sweep.xml > damaged.xml\n"
     "  exciter-settings lint damaged.xml\n"
     "  damaged.xml:28:9: warning: '0.0004' is saved as '0.00': TransmitTime keeps two decimals",
     [](QCommandLineParser& parser, const Options&) {
         parser.addPositionalArgument(QStringLiteral("lint"),
                                      QStringLiteral("Report silent losses."));
         parser.addPositionalArgument(QStringLiteral("FILE"),
                                      QStringLiteral("Settings files to lint."),
                                      QStringLiteral("FILE..."));
     },
     [](const QCommandLineParser& parser, const Options&, QTextStream& out, QTextStream& err) {
         if (Files(parser).isEmpty())
             return UsageError(err, QStringLiteral("lint needs at least one FILE"));
         return RunLint(Files(parser), out);
     }},
    {"schema", "exciter-settings schema > exciter-settings.xsd",
     [](QCommandLineParser& parser, const Options&) {
         parser.addPositionalArgument(QStringLiteral("schema"),
                                      QStringLiteral("Print the XML Schema."));
     },
     [](const QCommandLineParser& parser, const Options&, QTextStream& out, QTextStream& err) {
         if (!Files(parser).isEmpty())
             return UsageError(err, QStringLiteral("schema takes no FILE"));
         return RunSchema(out);
     }},
    {"format", "exciter-settings format - -o - < examples/sweep.xml",
     [](QCommandLineParser& parser, const Options& options) {
         parser.addPositionalArgument(QStringLiteral("format"),
                                      QStringLiteral("Rewrite FILE, or write OUT."));
         FileArgument(parser, QStringLiteral("Settings file."));
         parser.addOption(options.output);
     },
     [](const QCommandLineParser& parser, const Options& options, QTextStream&, QTextStream& err) {
         if (Files(parser).size() != 1)
             return UsageError(err, QStringLiteral("format takes exactly one FILE"));
         const QString target =
             parser.isSet(options.output) ? parser.value(options.output) : Files(parser).first();
         if (target.isEmpty())
             return UsageError(err, QStringLiteral("the output file name is empty"));
         return RunFormat(Files(parser).first(), target, err);
     }},
    {"get", "exciter-settings get examples/look_through.xml TGN/Power WDE/ExciterList/1/Level",
     [](QCommandLineParser& parser, const Options&) {
         parser.addPositionalArgument(QStringLiteral("get"),
                                      QStringLiteral("Print the settings that the paths name."));
         FileArgument(parser, QStringLiteral("Settings file."));
         parser.addPositionalArgument(QStringLiteral("PATH"),
                                      QStringLiteral("Settings, such as TGN/Power or "
                                                     "WDE/ExciterList/0."),
                                      QStringLiteral("PATH..."));
     },
     [](const QCommandLineParser& parser, const Options&, QTextStream& out, QTextStream& err) {
         const QStringList arguments = Files(parser);
         if (arguments.size() < 2)
             return UsageError(err, QStringLiteral("get takes a FILE and at least one PATH"));
         return RunGet(arguments.first(), arguments.mid(1), out, err);
     }},
    {"set", "exciter-settings set installed.xml TGN/Power=-10 WDE/ExciterList/0/Level=-3",
     [](QCommandLineParser& parser, const Options& options) {
         parser.addPositionalArgument(QStringLiteral("set"),
                                      QStringLiteral("Change settings of FILE and save it."));
         FileArgument(parser, QStringLiteral("Settings file."));
         parser.addPositionalArgument(
             QStringLiteral("PATH=VALUE"),
             QStringLiteral("Changes in order: PATH=VALUE sets a value (an enumeration by its "
                            "text), LIST/+ adds an item (LIST/+=VALUE to a list of values), "
                            "PATH=- removes an item or a value."),
             QStringLiteral("PATH=VALUE..."));
         parser.addOption(options.setJson);
         parser.addOption(options.output);
         parser.addOption(options.force);
     },
     [](const QCommandLineParser& parser, const Options& options, QTextStream& out,
        QTextStream& err) {
         const QStringList arguments = Files(parser);
         SetRequest request;
         request.file = arguments.value(0);
         request.assignments = arguments.mid(1);
         request.json = parser.value(options.setJson);
         request.force = parser.isSet(options.force);
         request.target =
             parser.isSet(options.output) ? parser.value(options.output) : request.file;
         if (request.file.isEmpty() ||
             (request.assignments.isEmpty() && !parser.isSet(options.setJson)))
             return UsageError(err, QStringLiteral("set takes a FILE and PATH=VALUE or --json"));
         if (request.target.isEmpty() || (parser.isSet(options.setJson) && request.json.isEmpty()))
             return UsageError(err, QStringLiteral("the file name is empty"));
         if (request.file == StandardStream() && request.json == StandardStream())
             return UsageError(err,
                               QStringLiteral("FILE and JSONFILE cannot both be standard input"));
         return RunSet(request, out, err);
     }},
    {"diff", "exciter-settings diff examples/sweep.xml installed.xml",
     [](QCommandLineParser& parser, const Options&) {
         parser.addPositionalArgument(QStringLiteral("diff"),
                                      QStringLiteral("Print the settings that differ."));
         parser.addPositionalArgument(QStringLiteral("A"), QStringLiteral("Settings file."));
         parser.addPositionalArgument(QStringLiteral("B"), QStringLiteral("Settings file."));
     },
     [](const QCommandLineParser& parser, const Options&, QTextStream& out, QTextStream& err) {
         const QStringList files = Files(parser);
         if (files.size() != 2)
             return UsageError(err, QStringLiteral("diff takes exactly two files"));
         if (files.at(0) == StandardStream() && files.at(1) == StandardStream())
             return UsageError(err, QStringLiteral("only one file can be standard input"));
         return RunDiff(files.at(0), files.at(1), out, err);
     }},
};

const Command* FindCommand(const QString& name) {
    for (const Command& command : kCommands) {
        if (name == QLatin1String(command.name))
            return &command;
    }
    return nullptr;
}

int Run(const QStringList& arguments, QTextStream& out, QTextStream& err) {
    QCommandLineParser parser;
    parser.setApplicationDescription(Description());
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addPositionalArgument(
        QStringLiteral("command"),
        QStringLiteral("check, show, lint, format, get, set, diff or schema."),
        QStringLiteral("<command> [<args>]"));

    // A first pass finds the command; its own arguments and options are then
    // added so that the second pass and the help text know them.
    parser.parse(arguments);
    const QString name = parser.positionalArguments().value(0);
    const Options options;
    const Command* command = FindCommand(name);
    if (command) {
        parser.clearPositionalArguments();
        command->setUp(parser, options);
        parser.setApplicationDescription(Description() + QStringLiteral("\n\nExample:\n  ") +
                                         QLatin1String(command->example));
    }

    if (!parser.parse(arguments))
        return UsageError(err, parser.errorText());
    if (parser.isSet(help) || parser.optionNames().contains(QStringLiteral("help-all"))) {
        out << parser.helpText();
        return ExitSuccess;
    }
    if (parser.isSet(version)) {
        out << QCoreApplication::applicationName() << ' ' << QCoreApplication::applicationVersion()
            << '\n';
        return ExitSuccess;
    }
    if (name.isEmpty())
        return UsageError(err, QStringLiteral("no command given"));
    if (!command)
        return UsageError(err, QStringLiteral("unknown command '%1'").arg(name));
    return command->run(parser, options, out, err);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral(EXCITERSETTINGS_TOOL_NAME));
    QCoreApplication::setApplicationVersion(QString::fromLatin1(KELMORA::ExciterSettingsVersion()));
    QTextStream out(stdout);
    QTextStream err(stderr);
    KELMORA::SetUtf8(out);
    KELMORA::SetUtf8(err);
    try {
        return Run(QCoreApplication::arguments(), out, err);
    } catch (const std::exception& failure) {
        err << QCoreApplication::applicationName() << ": " << failure.what() << '\n';
    } catch (...) {
        err << QCoreApplication::applicationName() << ": unexpected failure\n";
    }
    return ExitUnreadable;
}
