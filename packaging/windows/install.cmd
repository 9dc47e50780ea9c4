@echo off
rem Registers the COM server in this folder for all users of the machine; "install.cmd /u" takes that back.
rem Exit status: 0 done, 1 a server was not registered, 2 wrong usage, 3 a file is missing or damaged.
setlocal EnableExtensions DisableDelayedExpansion
set "here=%~dp0"
set status=0
set action=
if "%~1"=="" set action=install
if /i "%~1"=="/u" set action=take_back
if not "%~2"=="" set action=
if not defined action goto usage

rem A 32-bit prompt sees the folder of the 64-bit programs under another name.
set "machine=%PROCESSOR_ARCHITECTURE%"
set "system=%SystemRoot%\System32"
if not defined PROCESSOR_ARCHITEW6432 goto known
set "machine=%PROCESSOR_ARCHITEW6432%"
set "system=%SystemRoot%\Sysnative"
:known
set "system32bit=%SystemRoot%\SysWOW64"
if /i "%machine%"=="x86" set "system32bit=%SystemRoot%\System32"

if "%action%"=="install" call :check_files
if not "%status%"=="0" goto end

if not exist "%system32bit%\regsvr32.exe" goto no_32bit
call :%action% x86 "32-bit" "%system32bit%\regsvr32.exe"
goto 64bit
:no_32bit
echo This Windows has no 32-bit programs: the x86 server is left out.

:64bit
if /i "%machine%"=="x86" goto summary
if /i "%machine%"=="AMD64" goto x64
echo There is no server for 64-bit programs of this processor ("%machine%").
goto summary
:x64
call :%action% x64 "64-bit" "%system%\regsvr32.exe"

:summary
if not "%status%"=="0" goto end
if "%action%"=="take_back" goto end
echo The entries name this folder: keep it where it is. "install.cmd /u" takes the registration back.
:end
exit /b %status%

:usage
echo install.cmd      registers the COM server in this folder, for all users of this machine
echo install.cmd /u   takes the registration back
echo Run it in a command prompt of an administrator.
exit /b 2


rem :install FOLDER NAME REGSVR32
:install
"%~3" /s "%here%%~1\VantroProfileUtils.dll"
if not "%errorlevel%"=="0" goto not_registered
echo Registered for %~2 programs: "%here%%~1\VantroProfileUtils.dll"
goto :eof
:not_registered
set failure=%errorlevel%
set status=1
echo NOT registered for %~2 programs: "%here%%~1\VantroProfileUtils.dll"
call :explain %failure%
goto :eof

rem :take_back FOLDER NAME REGSVR32
:take_back
"%~3" /s /u "%here%%~1\VantroProfileUtils.dll"
if not "%errorlevel%"=="0" goto not_taken_back
echo No longer registered for %~2 programs: "%here%%~1\VantroProfileUtils.dll"
goto :eof
:not_taken_back
set failure=%errorlevel%
set status=1
echo The registration for %~2 programs was NOT taken back: "%here%%~1\VantroProfileUtils.dll"
call :explain %failure%
goto :eof

:explain
if "%~1"=="3" goto not_loaded
if "%~1"=="5" goto not_written
echo     regsvr32 ended with status %~1.
goto :eof
:not_loaded
echo     Windows cannot load the file. Is it there, and of this archive?
goto :eof
:not_written
echo     The registry was not changed. Run this in a command prompt of an administrator.
goto :eof


rem Compares the programs with SHA256SUMS, where Windows has certutil.
:check_files
set checked=0
set "certutil=%system%\certutil.exe"
set "sum=%TEMP%\VantroProfileUtils-%RANDOM%.sum"
if not exist "%here%SHA256SUMS" goto no_list
for /f "usebackq tokens=1,*" %%s in ("%here%SHA256SUMS") do call :check_file %%s "%%t"
if exist "%sum%" del "%sum%"
if not "%status%"=="0" goto :eof
if "%checked%"=="0" goto not_checked
echo Checked: the %checked% files in x86 and x64 are as they were packed.
goto :eof
:not_checked
echo The files were not compared with SHA256SUMS: certutil cannot do it here.
goto :eof
:no_list
echo The files were not compared: SHA256SUMS is missing.
goto :eof

rem :check_file SUM FILE. The second line of what certutil prints is the sum, on older systems with blanks.
:check_file
set "file=%~2"
set "file=%file:/=\%"
if not "%file:~0,4%"=="x86\" if not "%file:~0,4%"=="x64\" goto :eof
if not exist "%here%%file%" goto missing
if not exist "%certutil%" goto :eof
"%certutil%" -hashfile "%here%%file%" SHA256 > "%sum%" 2>nul
if not "%errorlevel%"=="0" goto :eof
set found=
for /f "usebackq skip=1 delims=" %%l in ("%sum%") do if not defined found set "found=%%l"
if not defined found goto :eof
set "found=%found: =%"
if "%found:~63,1%"=="" goto :eof
if not "%found:~64,1%"=="" goto :eof
if /i not "%found%"=="%~1" goto damaged
set /a checked=checked+1
goto :eof
:missing
set status=3
echo MISSING: "%here%%file%". Nothing was registered.
goto :eof
:damaged
set status=3
echo DAMAGED: "%here%%file%". Nothing was registered.
goto :eof
