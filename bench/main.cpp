// Measures the program's speed, each figure beside its floor. `bench.sh` gives it a display and a
// network of its own, with the address of a silent machine as the argument.

#include <QApplication>
#include <clocale>
#include <cstdio>
#include <exception>

#include "figures.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: kestrava_bench ADDRESS_OF_A_SILENT_MACHINE\n");
    return 2;
  }
  try {
    const QApplication application(argc, argv);
    kestrava::MeasurePassRow();
    kestrava::MeasurePassAgainstPing();
    kestrava::MeasureSilentMachine(argv[1]);
    kestrava::MeasureIdlePump();
    kestrava::MeasureStartup(QApplication::applicationDirPath().toStdString());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
