// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Alert panels that all look the same.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>
#include <memory>

class QWidget;

namespace lumbrix
{

class AlertPanel;

/// A panel that shows a message which the user answers with one of its buttons. Main thread.
///
/// Shown once, in one of two ways. The first button answers 1000, the second 1001, and so on;
/// closing the panel or pressing Escape counts as the last button.
class Alert
{
public:
    static constexpr int firstButtonReturn = 1000;
    static constexpr int secondButtonReturn = 1001;

    /// Texts are plain text; empty lines in `text` separate paragraphs.
    Alert(const QString& title, const QString& text, const QStringList& buttons);
    ~Alert();
    Alert(const Alert&) = delete;
    Alert& operator=(const Alert&) = delete;

    /// Adds a checkbox for "do not show this again"; a null text gives the default label.
    void showSuppressionButton(const QString& text);

    /// Shows it in front of everything and waits for the answer, with the event loop running.
    int runModal();
    /// Shows it as a sheet: the window takes no input until it is answered. Returns at once; the
    /// sheet lives on without this object, until it is answered or the window is destroyed, in
    /// which case `didEnd` is never called.
    void beginSheetModalForWindow(QWidget& window, std::function<void(int)> didEnd = {});

private:
    std::unique_ptr<AlertPanel> m_panel; ///< null once it is a sheet
};

} // namespace lumbrix
