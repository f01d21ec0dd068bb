// Where the tool's text goes: reports to standard output, errors to standard error.
#include "Console.h"

#include <iostream>

namespace epromtool {

void Console::out(const QString& line) {
    std::cout << line.toStdString() << '\n';
}

void Console::out(const QStringList& lines) {
    for (const QString& line : lines)
        out(line);
    std::cout.flush();
}

void Console::out(const QJsonDocument& document) {
    std::cout << document.toJson(QJsonDocument::Indented).toStdString();
    std::cout.flush();
}

void Console::error(const QString& text) {
    std::cerr << "epromtool: " << text.toStdString() << std::endl;
}

} // namespace epromtool
