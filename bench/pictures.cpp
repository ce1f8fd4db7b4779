// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The pictures of previews: how good they are, beside the exact average of the window's pixels, and
// what capturing and scaling them takes, beside the mere copying of as many bytes.
//
// Without arguments it measures everything; with `--quality FOLDER` only the quality, and leaves
// the pictures that were compared in the folder.

#include <benchmark/benchmark.h>

#include <QtCore/QDir>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <csignal>
#include <cstring>
#include <map>

#include "pictures/Quality.h"
#include "pictures/TerminalDesk.h"
#include "platform/StringLiterals.h"
#include "platform/pictures/PictureScaler.h"
#include "support/BareCopy.h"
#include "support/Table.h"

namespace lumbrix::bench
{

namespace
{

constexpr QSize panelSize(243, 190); // of a preview, by default

// Quality.

void compare(const QImage& source, QSize size, const QString& folder)
{
    const ExactPicture exact = areaAverage(source, size);
    const QImage scaled = scaledPicture(source, size);
    const QImage fourTaps = bilinear(source, size);
    const auto row = [&](const char* name, const QImage& picture) {
        std::printf("  %-38s %6.1f dB\n", name, psnr(picture, exact));
    };
    std::printf("\n%dx%d to %dx%d, beside the exact area average\n", source.width(),
                source.height(), size.width(), size.height());
    row("the exact average rounded (the limit)", exact.rounded());
    row("our scaler", scaled);
    row("the toolkit, smooth",
        source.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    row("bilinear", fourTaps);
    row("the toolkit, fast", source.scaled(size));
    if (folder.isEmpty())
        return;
    const QString name =
        u"%1/scaling-%2x%3%4.png"_s.arg(folder).arg(size.width()).arg(size.height());
    comparison(scaled, exact, fourTaps, size).save(name.arg(QString()));
    comparison(scaled, exact, fourTaps, {130, 96}).save(name.arg(u"-part"_s));
}

/// The quality of what is scaled, and of what is seen in the end.
void reportQuality(TerminalDesk& desk, const QString& folder)
{
    const QImage source = desk.capture();
    if (source.isNull())
        qFatal("the terminal could not be captured");
    std::printf("A terminal of %dx%d pixels; the capture is %s the screen shows\n", source.width(),
                source.height(), desk.isOnScreen(source) ? "exactly what" : "NOT what");
    compare(source, panelSize, folder);

    const QImage panel = desk.preview();
    if (panel.isNull()) {
        std::printf("No preview came.\n");
        return;
    }
    constexpr int corners = 8; // rounded, and an outline
    const Found shown = findShown(source, panel, corners);
    compare(source, shown.place.size(), folder);
    std::printf("\nThe preview on the screen, a panel of %dx%d with the picture at %d,%d\n"
                "  %-38s %6.1f dB\n",
                panel.width(), panel.height(), shown.place.x(), shown.place.y(),
                "its picture, without edges and corners", shown.psnr);
    const QImage expected = scaledPicture(source, shown.place.size());
    const QRect inner =
        QRect(QPoint(), shown.place.size()).adjusted(corners, corners, -corners, -corners);
    std::printf("  it is %s our scaler gives\n",
                panel.copy(inner.translated(shown.place.topLeft())) == expected.copy(inner)
                    ? "to the bit what"
                    : "NOT what");
    if (!folder.isEmpty()) {
        panel.save(folder + u"/panel.png"_s);
        source.save(folder + u"/terminal.png"_s);
    }
}

// Timing. The first benchmark of a group is its yardstick.

/// Of each benchmark, the least of its repetitions, for other programs only ever add; in a table
/// per group beside the yardstick.
class Summary : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
            if (run.error_occurred)
                std::printf("%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
            else if (run.run_type == Run::RT_Iteration)
                m_times[run.run_name.function_name].push_back(run.GetAdjustedRealTime());
    }
    void Finalize() override
    {
        for (const auto& [group, names] : order()) {
            Table table(group);
            const double yardstick = least(group + '/' + names.front());
            for (const std::string& name : names)
                table.add(name, least(std::string(group).append(1, '/').append(name)), yardstick,
                          "us");
            table.print();
        }
    }
    void add(const std::string& group, const std::string& name)
    {
        if (m_order.empty() || m_order.back().first != group)
            m_order.push_back({group, {}});
        m_order.back().second.push_back(name);
    }

private:
    using Group = std::pair<std::string, std::vector<std::string>>;

    double least(const std::string& name)
    {
        const std::vector<double>& times = m_times[name];
        return times.empty() ? 0 : *std::ranges::min_element(times);
    }
    const std::vector<Group>& order() const { return m_order; }

    std::map<std::string, std::vector<double>> m_times;
    std::vector<Group> m_order;
};

template <class Body>
benchmark::internal::Benchmark* add(Summary& summary, const std::string& group,
                                    const std::string& name, Body body)
{
    summary.add(group, name);
    return benchmark::RegisterBenchmark((group + '/' + name).c_str(), body)
        ->Unit(benchmark::kMicrosecond);
}

template <class Work>
void addSimple(Summary& summary, const std::string& group, const std::string& name, Work work)
{
    add(summary, group, name, [work](benchmark::State& state) {
        for ([[maybe_unused]] auto _ : state)
            work();
    })->UseRealTime();
}

void addCopy(Summary& summary, const std::string& group, const QImage& source)
{
    addSimple(summary, group, "copying its bytes",
              [source, copy = std::make_shared<std::vector<uchar>>(source.sizeInBytes())] {
                  std::memcpy(copy->data(), source.constBits(), copy->size());
                  benchmark::DoNotOptimize(copy->data());
                  benchmark::ClobberMemory();
              });
}

/// The picture of a window of this size, in a preview of one or two device pixels a point.
void addScaling(Summary& summary, const QImage& picture, QSize sourceSize, QSize target,
                QImage::Format format)
{
    const QImage source = picture.scaled(sourceSize).convertToFormat(format);
    const auto text = [](QSize size) {
        return std::to_string(size.width()) + 'x' + std::to_string(size.height());
    };
    const std::string group = "scaling " + text(sourceSize) + " to " + text(target) +
                              (format == QImage::Format_RGB32 ? "" : " translucent");
    addCopy(summary, group, source);
    addSimple(summary, group, "our scaler",
              [=] { benchmark::DoNotOptimize(scaledPicture(source, target)); });
    addSimple(summary, group, "our scaler, plain instructions",
              [=] { benchmark::DoNotOptimize(scaledPicture(source, target, Arithmetic::Plain)); });
    addSimple(summary, group, "the toolkit, smooth", [=] {
        benchmark::DoNotOptimize(
            source.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    });
    addSimple(summary, group, "the toolkit, fast",
              [=] { benchmark::DoNotOptimize(source.scaled(target)); });
}

/// Captures after something was drawn; only the capture that copies is timed.
void captureChanged(benchmark::State& state, TerminalDesk& desk, QSize limit, QSize drawn)
{
    using Clock = std::chrono::steady_clock;
    for ([[maybe_unused]] auto _ : state) {
        const std::uint64_t before = desk.copyCount();
        desk.draw(drawn);
        Clock::duration time{};
        const auto deadline = Clock::now() + std::chrono::seconds(5);
        while (desk.copyCount() == before) {
            const auto start = Clock::now();
            if (start > deadline) {
                state.SkipWithError("nobody told that something was drawn");
                return;
            }
            benchmark::DoNotOptimize(desk.windowServer().captureWindow(desk.window(), limit));
            time = Clock::now() - start;
        }
        state.SetIterationTime(std::chrono::duration<double>(time).count());
    }
}

void captureUnchanged(benchmark::State& state, TerminalDesk& desk, QSize limit)
{
    desk.windowServer().captureWindow(desk.window(), limit);
    const std::uint64_t before = desk.copyCount();
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(desk.windowServer().captureWindow(desk.window(), limit));
    if (desk.copyCount() != before)
        state.SkipWithError("it was copied although nothing had changed");
}

void addCapture(Summary& summary, TerminalDesk& desk, BareCopy& bare, const QImage& picture)
{
    const std::string group =
        "capture " + std::to_string(picture.width()) + 'x' + std::to_string(picture.height());
    addCopy(summary, group, picture);
    add(summary, group, "bare copy through shared memory", [&bare](benchmark::State& state) {
        for ([[maybe_unused]] auto _ : state)
            state.SetIterationTime(std::chrono::duration<double>(bare.copyAll()).count());
    })->UseManualTime();
    addSimple(summary, group, "bare copy through the socket", [&desk, size = picture.size()] {
        xcb_connection_t* connection = desk.display().connection();
        const auto cookie =
            xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, desk.display().root(), 0, 0,
                          static_cast<std::uint16_t>(size.width()),
                          static_cast<std::uint16_t>(size.height()), ~0U);
        std::free(xcb_get_image_reply(connection, cookie, nullptr));
    });
    for (const QSize limit : {QSize(), panelSize}) {
        const std::string suffix = limit.isEmpty() ? "" : ", for a preview";
        for (const QSize drawn : {picture.size(), QSize(2, 16)}) {
            const std::string what = drawn == picture.size() ? "changed window" : "blinking cursor";
            add(summary, group, what + suffix, [&desk, limit, drawn](benchmark::State& state) {
                captureChanged(state, desk, limit, drawn);
            })->UseManualTime();
        }
        add(summary, group, "unchanged window" + suffix,
            [&desk, limit](benchmark::State& state) { captureUnchanged(state, desk, limit); });
    }
}

int measure(TerminalDesk& desk, int argc, char** argv)
{
    const QImage picture = desk.capture();
    const QSize shown = picture.size().scaled(panelSize - QSize(20, 40), Qt::KeepAspectRatio);
    const std::uint64_t copies = desk.copyCount();
    for (int i = 0; i < 1000; ++i)
        desk.windowServer().captureWindow(desk.window(), {});
    std::printf("\n1000 captures of an unchanged window copied it %d times\n",
                static_cast<int>(desk.copyCount() - copies));
    BareCopy bare(desk.display().name(), {desk.window()}, picture.size());
    Summary summary;
    addCapture(summary, desk, bare, picture);
    constexpr QSize usual(1280, 800);
    for (const QSize source : {usual, QSize(1920, 1080), QSize(2560, 1440)})
        for (const QSize target : {shown, panelSize, panelSize * 2})
            addScaling(summary, picture, source, target, QImage::Format_RGB32);
    addScaling(summary, picture, usual, panelSize, QImage::Format_ARGB32_Premultiplied);

    // What others do on this machine meanwhile falls on all alike.
    std::vector<std::string> arguments{argv[0], "--benchmark_repetitions=9",
                                       "--benchmark_min_time=0.02",
                                       "--benchmark_enable_random_interleaving=true"};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    std::vector<char*> pointers;
    pointers.reserve(arguments.size());
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data()))
        return 2;
    benchmark::RunSpecifiedBenchmarks(&summary);
    return 0;
}

} // namespace

int run(int argc, char** argv)
{
    TerminalDesk desk;
    if (argc == 3 && std::strcmp(argv[1], "--quality") == 0) {
        const QString folder = QString::fromLocal8Bit(argv[2]);
        QDir().mkpath(folder);
        reportQuality(desk, folder);
        return 0;
    }
    reportQuality(desk, {});
    return measure(desk, argc, argv);
}

} // namespace lumbrix::bench

int main(int argc, char** argv)
{
    std::signal(SIGPIPE, SIG_IGN);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    return lumbrix::bench::run(argc, argv);
}
