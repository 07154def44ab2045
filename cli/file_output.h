// Where converted text goes: to the output of the program, or into a file that is there whole or not at all.
#ifndef QEL_CLI_FILE_OUTPUT_H
#define QEL_CLI_FILE_OUTPUT_H

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace Cli {

// The system's form of a name that was typed.
std::filesystem::path PathOf(const std::string& name);

class FileOutput {
 public:
  FileOutput() = default;
  FileOutput(const FileOutput&) = delete;
  FileOutput& operator=(const FileOutput&) = delete;
  ~FileOutput();  // takes away what is not finished

  // An empty name is the output of the program. False when nothing can be written there. What is there stays until
  // Finish; devices and pipes are written at once.
  bool Open(const std::string& name);
  // False: a file has not taken what came before, and more is in vain.
  bool Put(std::string_view bytes);
  // Whether all of it is in its place. An output that fails leaves what was there.
  bool Finish();

 private:
  void Flush();
  bool Replace();

  bool m_ToProgram = true;
  std::string m_Piece;
  std::filesystem::path m_Target;
  std::filesystem::path m_Temporary;  // empty: written straight into the target
  std::ofstream m_File;
};

}  // namespace Cli

#endif  // QEL_CLI_FILE_OUTPUT_H
