#include "app/ui/tembrelApp.h"

int main(int argc, char** argv) {
  return tembrel::tembrelApp(argc, argv).Run();
}
