// svg_plot.h - a small figure as an SVG file, for the pictures of the examples: points and lines over two
// axes.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace sondera::example {

struct SvgSeries {
  std::string label;
  std::string color;
  std::vector<double> x, y;
  bool line = false;  ///< a line through the points; else dots
  bool dashed = false;
};

struct SvgAxis {
  std::string label;
  double min = 0.0, max = 1.0;
  double step = 0.0;  ///< between ticks; a logarithmic axis has its own
  bool logarithmic = false;
  bool reversed = false;  ///< small values at the top or right
};

/// One plot of 640 by 420 points with a legend, written as text.
class SvgPlot {
 public:
  SvgPlot(std::string title, SvgAxis x, SvgAxis y)
      : title_(std::move(title)), x_(std::move(x)), y_(std::move(y)) {}
  void add(SvgSeries series) { series_.push_back(std::move(series)); }

  bool write(const std::string& path) const {
    std::ofstream out(path);
    out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"640\" height=\"420\" viewBox=\"0 0 640 420\" "
           "font-family=\"sans-serif\" font-size=\"13\">\n<rect width=\"640\" height=\"420\" "
           "fill=\"white\"/>\n";
    text(out, kLeft, 22, title_, "start", 15);
    ticks(out, x_, true);
    ticks(out, y_, false);
    out << "<rect x=\"" << kLeft << "\" y=\"" << kTop << "\" width=\"" << kRight - kLeft << "\" height=\""
        << kBottom - kTop << "\" fill=\"none\" stroke=\"#444\"/>\n";
    text(out, (kLeft + kRight) / 2, 412, x_.label, "middle", 13);
    out << "<text transform=\"translate(16," << (kTop + kBottom) / 2
        << ") rotate(-90)\" text-anchor=\"middle\">" << y_.label << "</text>\n";
    for (const SvgSeries& s : series_) draw(out, s);
    legend(out);
    out << "</svg>\n";
    return static_cast<bool>(out.flush());
  }

 private:
  static constexpr double kLeft = 64, kRight = 622, kTop = 34, kBottom = 374;

  static double share(const SvgAxis& a, double v) {
    const double s =
        a.logarithmic ? std::log(v / a.min) / std::log(a.max / a.min) : (v - a.min) / (a.max - a.min);
    return a.reversed ? 1.0 - s : s;
  }
  double px(double v) const { return kLeft + share(x_, v) * (kRight - kLeft); }
  double py(double v) const { return kBottom - share(y_, v) * (kBottom - kTop); }
  static bool inside(const SvgAxis& a, double v) { return v >= a.min && v <= a.max; }

  static void text(std::ostream& out, double x, double y, const std::string& t, const char* anchor,
                   int size) {
    out << "<text x=\"" << x << "\" y=\"" << y << "\" text-anchor=\"" << anchor << "\" font-size=\"" << size
        << "\">" << t << "</text>\n";
  }
  static std::string number(double v) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%g", v);
    return buffer;
  }

  static std::vector<double> tickValues(const SvgAxis& a) {
    std::vector<double> values;
    if (a.logarithmic) {
      for (double decade = 1e-3; decade < 1e6; decade *= 10)
        for (double m : {1.0, 2.0, 5.0})
          if (inside(a, decade * m)) values.push_back(decade * m);
    } else {
      for (double v = std::ceil(a.min / a.step) * a.step; v <= a.max * (1 + 1e-9); v += a.step)
        values.push_back(v);
    }
    return values;
  }

  void ticks(std::ostream& out, const SvgAxis& a, bool horizontal) const {
    for (double v : tickValues(a)) {
      const double p = horizontal ? px(v) : py(v);
      if (horizontal) {
        out << "<line x1=\"" << p << "\" y1=\"" << kTop << "\" x2=\"" << p << "\" y2=\"" << kBottom
            << "\" stroke=\"#ddd\"/>\n";
        text(out, p, kBottom + 17, number(v), "middle", 12);
      } else {
        out << "<line x1=\"" << kLeft << "\" y1=\"" << p << "\" x2=\"" << kRight << "\" y2=\"" << p
            << "\" stroke=\"#ddd\"/>\n";
        text(out, kLeft - 7, p + 4, number(v), "end", 12);
      }
    }
  }

  void draw(std::ostream& out, const SvgSeries& s) const {
    std::ostringstream path;
    for (std::size_t i = 0; i < std::min(s.x.size(), s.y.size()); ++i) {
      const bool shown = inside(x_, s.x[i]) && inside(y_, s.y[i]);
      if (s.line) {
        const double x = std::clamp(px(s.x[i]), kLeft, kRight), y = std::clamp(py(s.y[i]), kTop, kBottom);
        path << (path.tellp() == std::streampos(0) ? "M" : "L") << x << " " << y << " ";
      } else if (shown) {
        out << "<circle cx=\"" << px(s.x[i]) << "\" cy=\"" << py(s.y[i]) << "\" r=\"2.6\" fill=\"" << s.color
            << "\" fill-opacity=\"0.75\"/>\n";
      }
    }
    if (s.line)
      out << "<path d=\"" << path.str() << "\" fill=\"none\" stroke=\"" << s.color << "\" stroke-width=\"2\""
          << (s.dashed ? " stroke-dasharray=\"6 4\"" : "") << "/>\n";
  }

  void legend(std::ostream& out) const {
    double y = kTop + 18;
    for (const SvgSeries& s : series_) {
      if (s.label.empty()) continue;
      if (s.line)
        out << "<line x1=\"" << kRight - 172 << "\" y1=\"" << y - 4 << "\" x2=\"" << kRight - 152
            << "\" y2=\"" << y - 4 << "\" stroke=\"" << s.color << "\" stroke-width=\"2\""
            << (s.dashed ? " stroke-dasharray=\"6 4\"" : "") << "/>\n";
      else
        out << "<circle cx=\"" << kRight - 162 << "\" cy=\"" << y - 4 << "\" r=\"3\" fill=\"" << s.color
            << "\"/>\n";
      text(out, kRight - 146, y, s.label, "start", 12);
      y += 17;
    }
  }

  std::string title_;
  SvgAxis x_, y_;
  std::vector<SvgSeries> series_;
};

}  // namespace sondera::example
