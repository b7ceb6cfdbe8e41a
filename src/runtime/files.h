// files.h - includes all headers for file access:
//
//   byte_reader.h    bounded binary reading       ByteReader
//   atomic_writer.h  complete files or none       AtomicWriter, TextWriter, CopyFileAtomic
//   text_reader.h    lines and tokens             TextReader, Tokenizer
//   text_format.h    numbers and text, C locale   ParseReal, ParseInt, FormatText
//   lock_file.h      one process at a time         LockFile
//   paths.h          names                        JoinPath, FileExists, CurrentDirectory
//   file_driver.h    the system calls beneath     FileDriver, InstallFileDriver
#pragma once

#include "runtime/atomic_writer.h"
#include "runtime/byte_reader.h"
#include "runtime/file_driver.h"
#include "runtime/lock_file.h"
#include "runtime/paths.h"
#include "runtime/text_format.h"
#include "runtime/text_reader.h"
