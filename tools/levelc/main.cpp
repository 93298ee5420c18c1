// levelc: compiles a level source (JSON with names) into a ".fun" level file.
//
//   levelc SOURCE.json OUTPUT.fun
//
// Problems are printed one a line as "file:line: what is wrong" and the exit status is
// 1; nothing is written then. The output replaces the old file only once it is whole.
#include <cstdio>
#include <fstream>
#include <string>

#include "FunWriter.h"
#include "JsonDoc.h"
#include "LevelReader.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    fprintf(stderr, "usage: levelc SOURCE.json OUTPUT.fun\n");
    return 2;
  }
  const std::string source = argv[1], output = argv[2];
  soundgen::Diagnostics diag;
  soundgen::JsonDoc doc;
  levelc::LevelSource level;
  if (doc.Load(source, diag)) levelc::ReadLevelSource(doc, level, diag);
  if (!diag.Empty()) {
    fputs(diag.Joined().c_str(), stderr);
    return 1;
  }

  const std::string text = levelc::WriteFun(level);
  const std::string temporary = output + ".tmp";
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    out << text;
    if (!out.flush()) {
      fprintf(stderr, "%s:0: cannot write the file\n", temporary.c_str());
      return 1;
    }
  }
  if (std::rename(temporary.c_str(), output.c_str()) != 0) {
    fprintf(stderr, "%s:0: cannot replace the file\n", output.c_str());
    std::remove(temporary.c_str());
    return 1;
  }
  return 0;
}
