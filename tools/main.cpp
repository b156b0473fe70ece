// exciter-settings: checks, shows and formats settings files of any record of
// the library, chosen by the file's root element.
#include "Commands.h"
#include "RecordRegistry.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

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
               "Checks, shows and formats ExciterSettings XML files. The root element of a file\n"
               "%1\n"
               "\n"
               "Commands:\n"
               "  check FILE...         Load and validate each file; prints \"FILE: OK\" or\n"
               "                        \"FILE: <reason>\" per file.\n"
               "  show FILE             Print the settings as an indented tree.\n"
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
               "  schema                Print the XML Schema (XSD 1.0) of the settings files,\n"
               "                        for editors and validators (xmllint --schema).\n"
               "\n"
               "Exit status:\n"
               "  0   success\n"
               "  1   check: a file failed validation; lint: a file had findings; format:\n"
               "      the result could not be written (incomplete settings, target not\n"
               "      writable)\n"
               "  2   a file could not be read: missing, not well-formed XML, unknown root\n"
               "      element, or rejected by its record while loading (such as an unknown\n"
               "      element); the reason goes to standard error as \"FILE: <reason>\"\n"
               "  64  wrong usage")
        .arg(RecordNames(QStringLiteral("names its record:")));
}

int UsageError(QTextStream& err, const QString& text) {
    err << QCoreApplication::applicationName() << ": " << text << '\n'
        << "Try '" << QCoreApplication::applicationName() << " --help'.\n";
    return ExitUsage;
}

int Run(const QStringList& arguments, QTextStream& out, QTextStream& err) {
    QCommandLineParser parser;
    parser.setApplicationDescription(Description());
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("command"),
                                 QStringLiteral("check, show, lint, format or schema."),
                                 QStringLiteral("<command> [<args>]"));

    // A first pass finds the command; its own arguments and options are then
    // added so that the second pass and the help text know them.
    parser.parse(arguments);
    const QString command = parser.positionalArguments().value(0);
    const QCommandLineOption output({QStringLiteral("o"), QStringLiteral("output")},
                                    QStringLiteral("Write to OUT instead of rewriting FILE."),
                                    QStringLiteral("OUT"));
    const bool known = command == QLatin1String("check") || command == QLatin1String("show") ||
                       command == QLatin1String("lint") || command == QLatin1String("format") ||
                       command == QLatin1String("schema");
    if (known) {
        parser.clearPositionalArguments();
        if (command == QLatin1String("check")) {
            parser.addPositionalArgument(command, QStringLiteral("Load and validate each FILE."));
            parser.addPositionalArgument(QStringLiteral("FILE"),
                                         QStringLiteral("Settings files to validate."),
                                         QStringLiteral("FILE..."));
        } else if (command == QLatin1String("lint")) {
            parser.addPositionalArgument(command, QStringLiteral("Report silent losses."));
            parser.addPositionalArgument(QStringLiteral("FILE"),
                                         QStringLiteral("Settings files to lint."),
                                         QStringLiteral("FILE..."));
        } else if (command == QLatin1String("show")) {
            parser.addPositionalArgument(command, QStringLiteral("Print FILE as a tree."));
            parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Settings file."));
        } else if (command == QLatin1String("schema")) {
            parser.addPositionalArgument(command, QStringLiteral("Print the XML Schema."));
        } else {
            parser.addPositionalArgument(command, QStringLiteral("Rewrite FILE, or write OUT."));
            parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Settings file."));
            parser.addOption(output);
        }
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
    if (command.isEmpty())
        return UsageError(err, QStringLiteral("no command given"));
    if (!known)
        return UsageError(err, QStringLiteral("unknown command '%1'").arg(command));

    const QStringList files = parser.positionalArguments().mid(1);
    if (command == QLatin1String("schema")) {
        if (!files.isEmpty())
            return UsageError(err, QStringLiteral("schema takes no FILE"));
        return RunSchema(out);
    }
    if (command == QLatin1String("check")) {
        if (files.isEmpty())
            return UsageError(err, QStringLiteral("check needs at least one FILE"));
        return RunCheck(files, out, err);
    }
    if (command == QLatin1String("lint")) {
        if (files.isEmpty())
            return UsageError(err, QStringLiteral("lint needs at least one FILE"));
        return RunLint(files, out);
    }
    if (files.size() != 1)
        return UsageError(err, QStringLiteral("%1 takes exactly one FILE").arg(command));
    if (command == QLatin1String("show"))
        return RunShow(files.first(), out, err);
    const QString target = parser.isSet(output) ? parser.value(output) : files.first();
    if (target.isEmpty())
        return UsageError(err, QStringLiteral("the output file name is empty"));
    return RunFormat(files.first(), target, err);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("exciter-settings"));
    QCoreApplication::setApplicationVersion(QStringLiteral(EXCITERSETTINGS_VERSION));
    QTextStream out(stdout);
    QTextStream err(stderr);
    out.setCodec("UTF-8");
    err.setCodec("UTF-8");
    try {
        return Run(QCoreApplication::arguments(), out, err);
    } catch (const std::exception& failure) {
        err << QCoreApplication::applicationName() << ": " << failure.what() << '\n';
    } catch (...) {
        err << QCoreApplication::applicationName() << ": unexpected failure\n";
    }
    return ExitUnreadable;
}
