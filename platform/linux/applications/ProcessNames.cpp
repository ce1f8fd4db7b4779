// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/ProcessNames.h"
#include "platform/StringLiterals.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>

#include <algorithm>

namespace lumbrix::platform
{

namespace
{

bool isInterpreter(const QString& program)
{
    static const QRegularExpression pattern(
        u"^(python|perl|ruby|node|java|javaw|mono|bash|dash|sh|zsh|gjs|gjs-console|"
        "lua|wish|tclsh|guile|electron|flatpak|bwrap|wine|wine64|"
        "wine-preloader|wine64-preloader)[-0-9.]*$"_s);
    return pattern.match(program).hasMatch();
}

} // namespace

QStringList ProcessNames::programs() const
{
    QStringList result;
    const auto add = [&](const QString& path) {
        const QString base = QFileInfo(path).fileName();
        if (!base.isEmpty() && !isInterpreter(base))
            result.append(base);
    };
    if (!arguments.isEmpty()) {
        const QString first = QFileInfo(arguments.first()).fileName();
        add(arguments.first());
        if (isInterpreter(first)) {
            for (const QString& word : arguments.mid(1)) {
                if (!word.startsWith(u'-')) {
                    add(word);
                    const QString bare = QFileInfo(word).completeBaseName();
                    if (bare != QFileInfo(word).fileName())
                        add(bare);
                    break;
                }
            }
        }
    }
    add(executablePath);
    result.removeDuplicates();
    return result;
}

ProcessNames readProcessNames(std::int32_t pid)
{
    ProcessNames names;
    if (pid <= 0)
        return names;
    const QString folder = u"/proc/%1/"_s.arg(pid);
    names.executablePath = QFile::symLinkTarget(folder + u"exe"_s);
    if (names.executablePath.endsWith(u" (deleted)"_s))
        names.executablePath.chop(10); // replaced by an update while it runs
    QFile file(folder + u"cmdline"_s);
    if (file.open(QIODevice::ReadOnly)) {
        const QByteArrayList words = file.read(4096).split('\0');
        for (const QByteArray& word : words.first(std::min<qsizetype>(words.size(), 8)))
            names.arguments.append(QString::fromLocal8Bit(word));
    }
    return names;
}

} // namespace lumbrix::platform
