#include "tool.h"

int main(int argc, char** argv) {
  return static_cast<int>(cardwright::tool::run(argc, argv));
}
