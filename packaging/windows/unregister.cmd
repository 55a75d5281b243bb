@echo off
rem Takes back what register.cmd did; run it before the folder of lamcraft is moved or removed.
rem "unregister.cmd /q" does not wait for a key at the end.
setlocal
reg delete "HKLM\SOFTWARE\Tarvelle\Corvan QTR\2023" /v InstallLocation /f /reg:64 >nul
set "result=%errorlevel%"
if "%result%"=="0" (
  echo lamcraft is no longer registered.
) else (
  echo Nothing was taken back. lamcraft was not registered, or this takes an administrator:
  echo right-click unregister.cmd and choose "Run as administrator".
)
if /i not "%~1"=="/q" pause
exit /b %result%
