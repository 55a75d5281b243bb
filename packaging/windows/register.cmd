@echo off
rem Tells lamcraft where it is installed, so that it finds its message catalogues from every folder.
rem "register.cmd /q" does not wait for a key at the end.
setlocal
rem The short name of the folder, which every code page can spell.
for %%I in ("%~dp0.") do set "folder=%%~fsI"
reg add "HKLM\SOFTWARE\Tarvelle\Corvan QTR\2023" /v InstallLocation /t REG_SZ /d "%folder%\\" /f /reg:64 >nul
set "result=%errorlevel%"
if "%result%"=="0" (
  echo lamcraft is registered: it finds its message catalogues in "%folder%" from every folder.
) else (
  echo lamcraft could not be registered. This takes an administrator: right-click register.cmd
  echo and choose "Run as administrator".
)
if /i not "%~1"=="/q" pause
exit /b %result%
