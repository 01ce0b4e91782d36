<!DOCTYPE html>
<html>
<head>
<title>Randomizer</title>
<style>
body { font-family: sans-serif; margin: 2em; }
table { border-collapse: collapse; margin-bottom: 2em; }
td, th { border: 1px solid #888; padding: 4px 12px; text-align: left; }
td.number { text-align: right; }
th { background: #dde; }
</style>
</head>
<body>
<h1>Randomizer</h1>
<h2>Settings</h2>
<table>
<tr><th>Setting</th><th>Min</th><th>Max</th><th>Middle</th></tr>
<@open ID="Randomize.row"><tr><td><@field name></td><td class="number"><@field for(VAR(min), #,##0)></td><td class="number"><@field for(VAR(max), #,##0)></td><td class="number"><@field for(cal((VAR(min)+VAR(max))/2), #,##0.#)></td></tr>
<@close ID="Randomize.row"></table>
<h2>Calendar</h2>
<table>
<tr><th>Day</th><th>Time</th><th>Restart</th></tr>
<@open ID="Calendar.row"><tr><td><@field lef(VAR(name), 3)></td><td><@field mid(VAR(name), 5)></td><td><@field con(VAR(restart)=Yes, the servers restart, -)></td></tr>
<@close ID="Calendar.row"></table>
</body>
</html>
