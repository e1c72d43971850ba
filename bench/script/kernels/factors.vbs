Sub Main()
if not parentform.checkforevents then err.raise 1001
total = 0
if not parentform.checkforevents then err.raise 1001
for number = 2 to 30000
if not parentform.checkforevents then err.raise 1001
rest = number
if not parentform.checkforevents then err.raise 1001
d = 2
if not parentform.checkforevents then err.raise 1001
WHILE d * d <= rest
if not parentform.checkforevents then err.raise 1001
IF rest mod d = 0 THEN
if not parentform.checkforevents then err.raise 1001
total = total + d
if not parentform.checkforevents then err.raise 1001
rest = rest \ d
if not parentform.checkforevents then err.raise 1001
ELSE
if not parentform.checkforevents then err.raise 1001
d = d + 1
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
WEND
if not parentform.checkforevents then err.raise 1001
total = total + rest
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
parentform.PrintString total
if not parentform.checkforevents then err.raise 1001
End Sub
