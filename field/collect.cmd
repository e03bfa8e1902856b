@echo off
rem Records this machine as its user, elevated and as LocalSystem, and packs the recordings into one file:
rem
rem   collect.cmd [FILE.rec.gz [EXPORT...]]
rem
rem The recordings are redacted. Their report is next to the file, to be read before it is passed on. What cannot be
rem recorded (no elevation, no task scheduler) is named and left out.
setlocal
set "tool=%~dp0..\bin\sondrel.exe"
if "%~1"=="--step" goto step

set "out=%~f1"
if "%~1"=="" set "out=%CD%\notebook.rec.gz"
if exist "%out%" echo collect: %out% exists& exit /b 2
if not exist "%tool%" echo collect: %tool% is missing& exit /b 2
set names=
:next_name
if "%~2"=="" goto named
set "names=%names% %~2"
shift /2
goto next_name
:named
set "work=%TEMP%\sondrel-%RANDOM%%RANDOM%"
mkdir "%work%"
if not exist "%work%" exit /b 2

call "%~f0" --step user "%work%" %names%
if not exist "%work%\user.rec" echo collect: nothing could be recorded& rmdir /s /q "%work%"& exit /b 2

rem The step as LocalSystem needs the elevated one, which creates its task.
powershell -NoProfile -Command "Start-Process -Verb RunAs -Wait -WindowStyle Hidden -FilePath '%~f0' -ArgumentList '--step elevated \"%work%\" %names%'" >nul 2>&1

copy /b "%work%\user.rec" "%work%\all.rec" >nul
for %%k in (elevated system) do (
    if exist "%work%\%%k.rec" (
        copy /b "%work%\all.rec"+"%work%\%%k.rec" "%work%\more.rec" >nul
        move /y "%work%\more.rec" "%work%\all.rec" >nul
    ) else (
        echo collect: not recorded: %%k
    )
)
"%tool%" compress "%work%\all.rec" -o "%out%"
set failed=%ERRORLEVEL%
if "%failed%"=="0" "%tool%" --machine "%out%" report >"%out%.txt" 2>nul
rmdir /s /q "%work%"
if "%failed%"=="0" echo collect: %out%
exit /b %failed%

rem --step KIND WORK [EXPORT...]. The recorder's file is its owner's alone; the copy has the folder's access list.
:step
set "kind=%~2"
set "work=%~3"
set names=
:next_step_name
if "%~4"=="" goto step_named
set "names=%names% %~4"
shift /4
goto next_step_name
:step_named
"%tool%" record -o "%work%\%kind%.own" %names%
if exist "%work%\%kind%.own" type "%work%\%kind%.own" >"%work%\%kind%.part"
if exist "%work%\%kind%.part" move /y "%work%\%kind%.part" "%work%\%kind%.rec" >nul
echo done >"%work%\%kind%.done"
if not "%kind%"=="elevated" exit /b 0

set "task=sondrel-%RANDOM%%RANDOM%"
echo @"%~f0" --step system "%work%" %names% >"%work%\system.cmd"
schtasks /create /tn %task% /ru SYSTEM /sc once /st 00:00 /f /tr "\"%work%\system.cmd\"" >nul 2>&1
if errorlevel 1 exit /b 0
schtasks /run /tn %task% >nul 2>&1
rem Half an hour at most.
for /l %%i in (1,1,900) do (
    if not exist "%work%\system.done" ping -n 3 127.0.0.1 >nul
)
schtasks /delete /tn %task% /f >nul 2>&1
exit /b 0
