Sub Main()
if not parentform.checkforevents then err.raise 1001
inside = 0
if not parentform.checkforevents then err.raise 1001
for py = 0 to 149
if not parentform.checkforevents then err.raise 1001
for px = 0 to 149
if not parentform.checkforevents then err.raise 1001
cr = px / 75 - 1.5
if not parentform.checkforevents then err.raise 1001
ci = py / 75 - 1
if not parentform.checkforevents then err.raise 1001
zr = 0
if not parentform.checkforevents then err.raise 1001
zi = 0
if not parentform.checkforevents then err.raise 1001
n = 0
if not parentform.checkforevents then err.raise 1001
WHILE n < 200 AND zr * zr + zi * zi < 4
if not parentform.checkforevents then err.raise 1001
t = zr * zr - zi * zi + cr
if not parentform.checkforevents then err.raise 1001
zi = 2 * zr * zi + ci
if not parentform.checkforevents then err.raise 1001
zr = t
if not parentform.checkforevents then err.raise 1001
n = n + 1
if not parentform.checkforevents then err.raise 1001
WEND
if not parentform.checkforevents then err.raise 1001
IF n = 200 THEN
if not parentform.checkforevents then err.raise 1001
inside = inside + 1
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
NEXT '
if not parentform.checkforevents then err.raise 1001
NEXT '
if not parentform.checkforevents then err.raise 1001
parentform.PrintString inside
End Sub
