// CFileOpen: opening raw and sequence files with retries, and the messages for every
// way an open can fail.
#include "vglobal/messages/file_open.h"

#include <atomic>
#include <chrono>
#include <new>
#include <thread>

#include "messages/file_open_internal.h"

namespace {

// Open types.
constexpr int kExpectNew = 1;
constexpr int kExpectExisting = 3;
constexpr int kExpectExistingAlternative = 6;  // sequence files only

// Failure codes of one attempt.
constexpr int kOpened = 0;
constexpr int kAllocationFailed = 1;
constexpr int kObjectError = 2;
constexpr int kNotFound = 3;
constexpr int kAlreadyExists = 4;
constexpr int kIllegalOpenType = 6;

// Another program may still be writing the file or holding it; a second is what it
// takes such a program to let go.
constexpr unsigned kRetryDelayMilliseconds = 1000;

void SleepThread(unsigned milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

std::atomic<vglobal::RetryWait> g_retryWait{&SleepThread};

const wchar_t* PathOrEmpty(const wchar_t* path) {
  return path ? path : L"";
}

// Builds `File` with `make`; a file object that cannot be allocated is null.
template <typename File, typename Make>
File* MakeFile(Make make) {
  try {
    return make();
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

// Throws `message`; when there is none to throw, the open returns null.
template <typename File>
File* Fail(CMessage* message) {
  if (message) throw message;
  return nullptr;
}

// Attempt numbers 0..retries (at least one attempt). The counter stops at the last one
// instead of stepping past it, so even INT_MAX retries never overflow it.
template <typename File, typename Make, typename Judge>
File* Attempt(int retries, Make make, Judge judge, int& failure) {
  const int last = retries > 0 ? retries : 0;
  for (int attempt = 0;; ++attempt) {
    if (attempt > 0) g_retryWait.load()(kRetryDelayMilliseconds);
    File* file = MakeFile<File>(make);
    failure = judge(file);
    if (failure == kOpened) return file;
    if (attempt == last) return nullptr;
  }
}

}  // namespace

namespace vglobal {

RetryWait SetFileOpenRetryWait(RetryWait wait) {
  return g_retryWait.exchange(wait ? wait : &SleepThread);
}

}  // namespace vglobal

CRawfile* CFileOpen::OpenRawFileAndChkForErrors(const wchar_t* path, int openType, int retries) {
  const wchar_t* name = PathOrEmpty(path);
  if (openType != kExpectNew && openType != kExpectExisting)
    return Fail<CRawfile>(ConstructFileErrMsg(kIllegalOpenType, name, 0, L""));
  const int mustExist = openType == kExpectExisting ? 1 : 0;

  CString errorMessage;
  unsigned int errorCode = 0;
  int failure = kOpened;
  CRawfile* file = Attempt<CRawfile>(
      retries, [&] { return new (std::nothrow) CRawfile(name, 0); },
      [&](CRawfile* f) { return ChkIsFileOpenOk(f, errorMessage, errorCode, mustExist); }, failure);
  if (file) return file;
  return Fail<CRawfile>(ConstructFileErrMsg(failure, name, errorCode, errorMessage));
}

CSequence* CFileOpen::OpenSeqFileAndChkForErrors(const wchar_t* path, int openType, int retries) {
  const wchar_t* name = PathOrEmpty(path);
  if (openType != kExpectNew && openType != kExpectExisting &&
      openType != kExpectExistingAlternative)
    return Fail<CSequence>(ConstructFileErrMsg(kIllegalOpenType, name, 0, L""));
  const int mustExist = openType == kExpectNew ? 0 : 1;
  // The open type only says how the result is judged, except that type 6 opens the
  // sequence in its alternative mode.
  const int alternative = openType == kExpectExistingAlternative ? 1 : 0;

  CString errorMessage;
  unsigned int errorCode = 0;
  int failure = kOpened;
  CSequence* file = Attempt<CSequence>(
      retries, [&] { return new (std::nothrow) CSequence(name, alternative, 0); },
      [&](CSequence* f) { return ChkIsFileOpenOk(f, errorMessage, errorCode, mustExist); },
      failure);
  if (file) return file;
  return Fail<CSequence>(ConstructFileErrMsg(failure, name, errorCode, errorMessage));
}

int CFileOpen::ChkIsFileOpenOk(CBaseIO* file, CString& errorMessage, unsigned int& errorCode,
                               int mustExist) {
  if (!file) return kAllocationFailed;
  if (file->IsError()) {
    errorCode = file->GetErrorCode();
    errorMessage = file->GetErrorMessage();
    delete file;
    return kObjectError;
  }
  if (file->CreatedFile()) {
    if (mustExist) {
      delete file;
      return kNotFound;
    }
  } else if (!mustExist) {
    delete file;
    return kAlreadyExists;
  }
  return kOpened;
}

CMessage* CFileOpen::ConstructFileErrMsg(int failure, const wchar_t* path, unsigned int errorCode,
                                         const wchar_t* errorMessage) {
  const wchar_t* name = PathOrEmpty(path);
  try {
    switch (failure) {
      case kOpened:
        return nullptr;
      case kAllocationFailed:
        return new (std::nothrow)
            CMessage(EMSG_ERROR, L"%s\nFile Object allocation failed\n", name);
      case kObjectError:
        return new (std::nothrow)
            CMessage(EMSG_ERROR,
                     L"%s\nFile Object reports an error.\nError code: %8.8X(hex)\nError Msg: %s\n",
                     name, errorCode, PathOrEmpty(errorMessage));
      case kNotFound:
        return new (std::nothrow) CMessage(EMSG_ERROR, L"%s\nFile wasn't found\n", name);
      case kAlreadyExists:
        return new (std::nothrow) CMessage(EMSG_ERROR, L"%s\nFile already exists\n", name);
      case kIllegalOpenType:
        return new (std::nothrow) CMessage(EMSG_ERROR, L"%s\nIllegal OpenType parameter\n", name);
      default:
        return new (std::nothrow)
            CMessage(EMSG_ERROR, L"%s\nUnknown failure mode opening file\n", name);
    }
  } catch (const std::bad_alloc&) {
    // The message's own text could not be allocated.
    return nullptr;
  }
}
