#include "player/error_page.h"

#include "player/code_page.h"
#include "player/font.h"

#include <algorithm>

namespace player
{

namespace
{

constexpr Pixel background = makePixel(24, 20, 37);
constexpr Pixel titleColor = makePixel(255, 120, 110);
constexpr Pixel messageColor = makePixel(255, 255, 255);
constexpr Pixel detailColor = makePixel(170, 175, 200);
constexpr int margin = 12;
constexpr int lineHeight = 10;
constexpr int gap = 6;
constexpr std::string_view advice = "Escape closes the game.";

// Writes lines of text one below the other.
class Column
{
public:
    explicit Column(Image& image)
        : image_(image)
    {
    }

    void write(std::string_view text, Pixel color)
    {
        const auto width = static_cast<std::size_t>((image_.width() - 2 * margin) / characterSide);
        for (const std::string& line : wrapped(text, width)) {
            drawText(image_, margin, y_, line, color);
            y_ += lineHeight;
        }
    }

    void skip() { y_ += gap; }

private:
    Image& image_;
    int y_ = margin;
};

// Where a line of at most `width` characters ends: at the last blank, or hard.
std::size_t lineEnd(std::string_view text, std::size_t width)
{
    const std::size_t lineBreak = text.substr(0, width + 1).find('\n');
    if (lineBreak != std::string_view::npos || text.size() <= width) {
        return std::min(lineBreak, text.size());
    }
    const std::size_t blank = text.rfind(' ', width);
    return blank == std::string_view::npos || blank == 0 ? width : blank;
}

// At the bottom, over whatever text reaches that far.
void drawAdvice(Image& image)
{
    const int top = image.height() - margin - lineHeight;
    image.fill({0, top - gap / 2, image.width(), image.height()}, background);
    drawText(image, margin, top, advice, titleColor);
}

} // namespace

std::vector<std::string> wrapped(std::string_view text, std::size_t width)
{
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = lineEnd(text, width);
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
        if (!text.empty() && (text.front() == ' ' || text.front() == '\n')) {
            text.remove_prefix(1);
        }
    }
    return lines;
}

void drawErrorPage(Image& image, const ErrorReport& report)
{
    image.clear(background);
    Column column(image);
    column.write("Error", titleColor);
    column.skip();
    if (!report.file.empty()) {
        column.write("File: " + report.file, messageColor);
        column.write("Line: " + std::to_string(report.line), messageColor);
        column.skip();
    }
    column.write(report.message, messageColor);
    column.skip();
    for (const std::string& call : report.trace) {
        column.write(call, detailColor);
    }
    drawAdvice(image);
}

void writeError(std::ostream& out, const ErrorReport& report)
{
    out << "Error: " << utf8From1252(report.headline()) << '\n';
    for (const std::string& call : report.trace) {
        out << "    " << utf8From1252(call) << '\n';
    }
    out.flush();
}

} // namespace player
